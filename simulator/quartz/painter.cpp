// Painting of frozen layers with cairo.
#include "simulator/quartz/painter.hpp"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "simulator/quartz/blur.hpp"
#include "simulator/quartz/pixels.hpp"
#include "simulator/quartz/render_cache.hpp"
#include "simulator/quartz/shapes.hpp"
#include "simulator/quartz/spans.hpp"

namespace sim {
namespace {

// Which entries of a display list, and where.
struct Selection {
  int from, end;
  PixelRect rect;

  bool takes(const RenderNode& node) const {
    return node.end > from && node.first < end && overlap(node.reach, rect);
  }
  bool takes(int entry) const { return entry >= from && entry < end; }
};

class Painter {
 public:
  /** Paints a layer with all its effects into its parent's coordinates. */
  static void paint(cairo_t* context, RenderNode& node, double scale) {
    const SavedState saved(context);
    applyTransform(context, node.toParent);
    if (!isOutsideClip(context, node.extents)) paintWhole(context, node, scale);
  }

  /** The same of a node of a display list, with nothing but the selection. */
  static void paint(cairo_t* context, RenderNode& node, double scale, const Selection& selection) {
    if (!selection.takes(node)) return;
    const SavedState saved(context);
    applyTransform(context, node.toParent);
    if (node.isWhole) {
      paintWhole(context, node, scale);
      return;
    }
    const bool showsGround = node.hasGround && selection.takes(node.first);
    if (showsGround) paintBackground(context, node, node.values.cornerRadius);
    {
      const SavedState inside(context);
      clipToBounds(context, node);
      if (showsGround) paintContent(context, node, scale);
      for (RenderNode& child : node.children) paint(context, child, scale, selection);
    }
    if (node.hasBorder && selection.takes(node.end - 1)) paintBorder(context, node);
  }

 private:
  // Without position and transform, which are the caller's.
  static void paintWhole(cairo_t* context, RenderNode& node, double scale) {
    if (node.values.opacity >= 1) {
      paintOpaque(context, node, scale);
      return;
    }
    clipToPixels(context, node.extents);
    cairo_push_group(context);
    paintOpaque(context, node, scale);
    cairo_pop_group_to_source(context);
    cairo_paint_with_alpha(context, node.values.opacity);
  }

  // Without position, transform and opacity, which are the caller's.
  static void paintOpaque(cairo_t* context, RenderNode& node, double scale) {
    if (!node.layer->shouldRasterize) {
      paintShadow(context, node, scale);
      paintBody(context, node, scale);
      return;
    }
    const double pixels = Inside::pixelsPerPoint(*node.layer, scale);
    Bitmap& picture = Inside::cacheOf(node, pixels).rasterized;
    if (!picture.image) {
      Bitmap fresh = emptyBitmap(node, node.extents, pixels);
      {
        const Context inside(fresh.image.get());
        enter(inside, fresh);
        paintShadow(inside, node, pixels);
        paintBody(inside, node, pixels);
      }
      fresh.runs = Runs(fresh.image.get());
      picture = std::move(fresh);
    }
    const SavedState saved(context);
    placeBitmap(context, picture);
    if (layStraight(context, picture)) return;
    cairo_set_source_surface(context, picture.image.get(), 0, 0);
    cairo_paint(context);
  }

  // Into the target's own pixels, where it stays upright on the way.
  static bool layStraight(cairo_t* context, const Bitmap& picture) {
    cairo_surface_t* const target = cairo_get_target(context);
    if (cairo_get_group_target(context) != target) return false;
    const auto rect = clipRectangle(context);
    if (!rect) return false;
    const auto sampling = samplingOf(context, picture.image.get(), *rect);
    if (sampling) layOver(target, *rect, picture.image.get(), picture.runs, *sampling);
    return sampling.has_value();
  }

  static void paintShadow(cairo_t* context, RenderNode& node, double scale) {
    const Layer& layer = *node.layer;
    if (!castsShadow(layer)) return;
    Bitmap& shadow = Inside::cacheOf(node, scale).shadow;
    if (!shadow.image) {
      const double deviation = std::max(layer.shadowRadius, 0.0) * scale,
                   reach = blurReach(deviation) / scale;
      CGRect area = node.bodyExtents;
      area.origin.x -= reach;
      area.origin.y -= reach;
      area.size.width += 2 * reach;
      area.size.height += 2 * reach;
      Bitmap body = emptyBitmap(node, area, scale);
      {
        const Context inside(body.image.get());
        enter(inside, body);
        paintBody(inside, node, scale);
      }
      shadow = {blurredAlpha(body.image.get(), deviation), body.origin, scale};
    }
    const SavedState saved(context);
    cairo_translate(context, layer.shadowOffset.width, layer.shadowOffset.height);
    placeBitmap(context, shadow);
    setSource(context, withAlpha(layer.shadowColor, layer.shadowColor.alpha * layer.shadowOpacity));
    cairo_mask_surface(context, shadow.image.get(), 0, 0);
  }

  static void paintBody(cairo_t* context, RenderNode& node, double scale) {
    const CGRect& bounds = node.values.bounds;
    const double radius = node.values.cornerRadius;
    const bool rounded = radius > 0;
    if (node.layer->masksToBounds && rounded) {
      // All inside painted first and cut out in one go: each edge pixel is weighed once.
      const SavedState saved(context);
      clipToPixels(context, bounds);
      cairo_push_group(context);
      paintBackground(context, node, 0);
      paintInside(context, node, scale);
      cairo_pop_group_to_source(context);
      addRoundedRect(context, bounds, radius);
      cairo_fill(context);
    } else {
      paintBackground(context, node, radius);
      const SavedState saved(context);
      clipToBounds(context, node);
      paintInside(context, node, scale);
    }
    paintBorder(context, node);
  }

  static void clipToBounds(cairo_t* context, const RenderNode& node) {
    if (!node.layer->masksToBounds) return;
    addRoundedRect(context, node.values.bounds, 0);
    cairo_clip(context);
  }

  static void paintBackground(cairo_t* context, const RenderNode& node, double radius) {
    if (node.values.backgroundColor.alpha <= 0) return;
    setSource(context, node.values.backgroundColor);
    addRoundedRect(context, node.values.bounds, radius);
    cairo_fill(context);
  }

  static void paintInside(cairo_t* context, RenderNode& node, double scale) {
    paintContent(context, node, scale);
    for (RenderNode& child : node.children) paint(context, child, scale);
  }

  static void paintContent(cairo_t* context, RenderNode& node, double scale) {
    Layer& layer = *node.layer;
    if (!Inside::hasContent(layer, scale)) return;
    const CGSize size = Inside::contentSize(layer);
    const CGRect place = contentRect(node.values.bounds, size, layer.contentsGravity);
    if (!(place.size.width > 0 && place.size.height > 0)) return;
    const double pixels = Inside::contentPixels(layer);
    const SavedState saved(context);
    cairo_rectangle(context, place.origin.x, place.origin.y, place.size.width, place.size.height);
    cairo_translate(context, place.origin.x, place.origin.y);
    cairo_scale(context, place.size.width / size.width / pixels, place.size.height / size.height / pixels);
    cairo_set_source_surface(context, Inside::content(layer), 0, 0);
    // The edge is the rectangle's; without this a stretched picture would fade towards it as well.
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_PAD);
    cairo_fill(context);
  }

  static void paintBorder(cairo_t* context, const RenderNode& node) {
    const Layer& layer = *node.layer;
    const CGRect& bounds = node.values.bounds;
    const double width = layer.borderWidth;
    if (width <= 0 || layer.borderColor.alpha <= 0) return;
    const SavedState saved(context);
    setSource(context, layer.borderColor);
    cairo_set_fill_rule(context, CAIRO_FILL_RULE_EVEN_ODD);
    addRoundedRect(context, bounds, node.values.cornerRadius);
    if (bounds.size.width > 2 * width && bounds.size.height > 2 * width) {
      const CGRect inner{{bounds.origin.x + width, bounds.origin.y + width},
                         {bounds.size.width - 2 * width, bounds.size.height - 2 * width}};
      addRoundedRect(context, inner, node.values.cornerRadius - width);
    }
    cairo_fill(context);
  }

  // Clear pixels that cover `area`, on the pixel grid that begins at the bounds' origin, so that a layer that
  // lies on the screen's pixels is painted from its picture pixel for pixel.
  static Bitmap emptyBitmap(const RenderNode& node, const CGRect& area, double scale) {
    const CGPoint zero = node.values.bounds.origin;
    const double left = std::floor((area.origin.x - zero.x) * scale);
    const double top = std::floor((area.origin.y - zero.y) * scale);
    const double right = std::ceil((area.origin.x + area.size.width - zero.x) * scale);
    const double bottom = std::ceil((area.origin.y + area.size.height - zero.y) * scale);
    return {makeImage(static_cast<int>(right - left), static_cast<int>(bottom - top)),
            {zero.x + left / scale, zero.y + top / scale},
            scale};
  }

  // Lets a context on the bitmap be used with the layer's coordinates.
  static void enter(cairo_t* context, const Bitmap& bitmap) {
    cairo_scale(context, bitmap.scale, bitmap.scale);
    cairo_translate(context, -bitmap.origin.x, -bitmap.origin.y);
  }

  // Lets a context with the layer's coordinates be used with the bitmap's pixels.
  static void placeBitmap(cairo_t* context, const Bitmap& bitmap) {
    cairo_translate(context, bitmap.origin.x, bitmap.origin.y);
    cairo_scale(context, 1 / bitmap.scale, 1 / bitmap.scale);
  }
};

}  // namespace

void paintEntries(cairo_surface_t* target, DisplayList& list, double scale, std::size_t from, std::size_t end,
                  const PixelRect& rect) {
  const Context context(target);
  cairo_rectangle(context, rect.x, rect.y, rect.width, rect.height);
  cairo_clip(context);
  cairo_scale(context, scale, scale);
  const Selection selection{static_cast<int>(from), static_cast<int>(end), rect};
  for (RenderNode& node : list.nodes) Painter::paint(context, node, scale, selection);
}

}  // namespace sim
