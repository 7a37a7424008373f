// Flattening of layer trees, and comparing what came of it.
#include "simulator/quartz/display_list.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <unordered_map>

#include "simulator/quartz/pixels.hpp"
#include "simulator/quartz/render_cache.hpp"

namespace sim {
namespace {

cairo_matrix_t matrixOf(const CGAffineTransform& t) { return {t.a, t.b, t.c, t.d, t.tx, t.ty}; }

bool isUpright(const cairo_matrix_t& m) { return m.xy == 0 && m.yx == 0; }

// As cairo sees it, which counts in fractions of a pixel.
bool isWhole(double pixels) {
  constexpr double finest = 1.0 / 65536;
  return std::abs(pixels - std::round(pixels)) < finest / 4;
}

// Whether a picture's pixels come to lie on the screen's.
bool isOnPixels(const cairo_matrix_t& m) {
  return isUpright(m) && m.xx == 1 && m.yy == 1 && isWhole(m.x0) && isWhole(m.y0);
}

class Flattening {
 public:
  Flattening(DisplayList& into, double pixelsPerPoint) : list(into), scale(pixelsPerPoint) {}

  /** False when nothing of the node can be seen within `clip`. */
  bool add(RenderNode& node, const cairo_matrix_t& outside, const PixelRect& clip) {
    const cairo_matrix_t matrix = within(outside, node);
    if (isEmpty(pixelsWithin(clip, matrix, node.extents))) return false;
    const Layer& layer = *node.layer;
    const bool isRounded = node.values.cornerRadius > 0;
    node.first = count();
    node.isWhole = node.values.opacity < 1 || Inside::isKept(layer) ||
                   (layer.masksToBounds && (isRounded || !isUpright(matrix)));
    if (node.isWhole)
      addWhole(node, matrix, clip);
    else
      addParts(node, matrix, clip);
    node.end = count();
    for (int i = node.first; i < node.end; ++i)
      node.reach = unionOf(node.reach, list.entries[static_cast<std::size_t>(i)].box);
    return true;
  }

 private:
  enum Part { ground, border };

  int count() const { return static_cast<int>(list.entries.size()); }

  static cairo_matrix_t within(const cairo_matrix_t& outside, const RenderNode& node) {
    const cairo_matrix_t own = matrixOf(node.toParent);
    cairo_matrix_t matrix;
    cairo_matrix_multiply(&matrix, &own, &outside);
    return matrix;
  }

  void enter(const RenderNode& node, Part part, const PixelRect& box, bool isFixed,
             const PixelRect& cover = {}) {
    list.entries.push_back({Inside::id(*node.layer) * 2 + part, box, isFixed, list.numbers.size(), cover});
  }

  // What is opaque of a picture that is there already, but for pixels at its edges that may be soft.
  PixelRect coverOf(RenderNode& node, const cairo_matrix_t& m, const PixelRect& clip) const {
    if (!node.layer->shouldRasterize || node.values.opacity < 1 || !isUpright(m) || !(m.xx > 0 && m.yy > 0))
      return {};
    const Bitmap& picture = Inside::cacheOf(node, Inside::pixelsPerPoint(*node.layer, scale)).rasterized;
    const PixelRect& opaque = picture.runs.opaque();
    if (isEmpty(opaque)) return {};
    constexpr double edge = 2;
    const double x = picture.origin.x + opaque.x / picture.scale;
    const double y = picture.origin.y + opaque.y / picture.scale;
    const double left = std::max<double>(std::ceil(x * m.xx + m.x0), clip.x) + edge;
    const double top = std::max<double>(std::ceil(y * m.yy + m.y0), clip.y) + edge;
    const double right = std::floor((x + opaque.width / picture.scale) * m.xx + m.x0);
    const double bottom = std::floor((y + opaque.height / picture.scale) * m.yy + m.y0);
    const double width = std::min<double>(right, clip.x + clip.width) - edge - left;
    const double height = std::min<double>(bottom, clip.y + clip.height) - edge - top;
    if (!(width > 0 && height > 0)) return {};
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(width), static_cast<int>(height)};
  }

  void describe(const RenderNode& node, const cairo_matrix_t& m) {
    list.numbers.insert(list.numbers.end(), {m.xx, m.yx, m.xy, m.yy, m.x0, m.y0, node.values.opacity});
    Inside::describe(list.numbers, node, scale);
  }

  void addWhole(RenderNode& node, const cairo_matrix_t& matrix, const PixelRect& clip) {
    CGRect area = node.extents;
    if (Inside::isKept(*node.layer)) {
      // Pictures end at whole pixels of their own, and fade out over one more.
      const double more = 2 / Inside::pixelsPerPoint(*node.layer, scale);
      area = {{area.origin.x - more, area.origin.y - more},
              {area.size.width + 2 * more, area.size.height + 2 * more}};
    }
    enter(node, ground, pixelsWithin(clip, matrix, area), false, coverOf(node, matrix, clip));
    describeAll(node, matrix, clip);
  }

  // As far as it can be seen: what cannot is not drawn for it.
  void describeAll(RenderNode& node, const cairo_matrix_t& matrix, const PixelRect& clip) {
    if (Inside::isKept(*node.layer)) {
      const double pixels = Inside::pixelsPerPoint(*node.layer, scale);
      const double id = static_cast<double>(Inside::cacheOf(node, pixels).id);
      list.numbers.insert(list.numbers.end(), {id, matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0,
                                               matrix.y0, node.values.opacity});
      return;
    }
    describe(node, matrix);
    const PixelRect inside =
        node.layer->masksToBounds ? pixelsWithin(clip, matrix, node.values.bounds) : clip;
    for (RenderNode& child : node.children) {
      const cairo_matrix_t its = within(matrix, child);
      if (!isEmpty(pixelsWithin(inside, its, child.extents))) describeAll(child, its, inside);
    }
    list.numbers.push_back(static_cast<double>(node.children.size()));
  }

  void addParts(RenderNode& node, const cairo_matrix_t& matrix, const PixelRect& clip) {
    const Layer& layer = *node.layer;
    const LayerValues& values = node.values;
    const PixelRect bounds = pixelsWithin(clip, matrix, values.bounds);
    const bool hasContent = Inside::hasContent(*node.layer, scale);
    node.hasGround = hasContent || values.backgroundColor.alpha > 0 || layer.masksToBounds;
    const bool isPlain = isUpright(matrix) && !(values.cornerRadius > 0);
    if (node.hasGround) {
      PixelRect box = bounds;
      bool isFixed = isPlain;
      if (hasContent) {
        const CGRect place = contentRect(values.bounds, Inside::contentSize(layer), layer.contentsGravity);
        box = unionOf(box, pixelsWithin(clip, matrix, place));
        isFixed = isFixed && isOnPixels(contentMatrix(layer, place, matrix));
      }
      enter(node, ground, box, isFixed);
      describe(node, matrix);
    }
    const PixelRect inside = layer.masksToBounds ? pixelsWithin(clip, matrix, values.bounds) : clip;
    std::erase_if(node.children, [&](RenderNode& child) { return !add(child, matrix, inside); });
    node.hasBorder = layer.borderWidth > 0 && layer.borderColor.alpha > 0;
    if (node.hasBorder) {
      enter(node, border, bounds, isPlain);
      describe(node, matrix);
    }
  }

  static cairo_matrix_t contentMatrix(const Layer& layer, const CGRect& place, cairo_matrix_t matrix) {
    const CGSize size = Inside::contentSize(layer);
    const double pixels = Inside::contentPixels(layer);
    cairo_matrix_translate(&matrix, place.origin.x, place.origin.y);
    cairo_matrix_scale(&matrix, place.size.width / size.width / pixels,
                       place.size.height / size.height / pixels);
    return matrix;
  }

  DisplayList& list;
  const double scale;
};

bool areSame(const DisplayList& a, std::size_t i, const DisplayList& b, std::size_t k) {
  const DisplayEntry &one = a.entries[i], &other = b.entries[k];
  const auto x = a.numbersOf(i), y = b.numbersOf(k);
  return one.key == other.key && one.box == other.box && x.size() == y.size() &&
         std::memcmp(x.data(), y.data(), x.size_bytes()) == 0;
}

}  // namespace

std::span<const double> DisplayList::numbersOf(std::size_t entry) const {
  const std::size_t begin = entries[entry].begin;
  const std::size_t end = entry + 1 < entries.size() ? entries[entry + 1].begin : numbers.size();
  return std::span(numbers).subspan(begin, end - begin);
}

DisplayList listOf(std::span<Layer* const> roots, double now, const PixelRect& screen, double scale) {
  DisplayList list;
  cairo_matrix_t outside;
  cairo_matrix_init_scale(&outside, scale, scale);
  Flattening flattening(list, scale);
  for (Layer* root : roots) {
    auto node = freeze(*root, now);
    if (node && flattening.add(*node, outside, screen)) list.nodes.push_back(std::move(*node));
  }
  return list;
}

std::size_t commonEntries(const DisplayList& before, const DisplayList& now) {
  const std::size_t most = std::min(before.entries.size(), now.entries.size());
  std::size_t common = 0;
  while (common < most && areSame(before, common, now, common)) ++common;
  return common;
}

Region difference(const DisplayList& before, const DisplayList& now, std::size_t common) {
  Region changed;
  std::unordered_map<std::uint64_t, std::size_t> places;
  for (std::size_t i = common; i < before.entries.size(); ++i) places[before.entries[i].key] = i;
  std::size_t next = common;  // what comes before it is behind what was found already
  for (std::size_t i = common; i < now.entries.size(); ++i) {
    const auto place = places.find(now.entries[i].key);
    if (place == places.end()) {
      changed.add(now.entries[i].box);
      continue;
    }
    const bool isInOrder = place->second >= next;
    if (isInOrder) next = place->second + 1;
    if (!isInOrder || !areSame(before, place->second, now, i)) {
      changed.add(now.entries[i].box);
      changed.add(before.entries[place->second].box);
    }
    places.erase(place);
  }
  for (std::size_t i = common; i < before.entries.size(); ++i)
    if (places.contains(before.entries[i].key)) changed.add(before.entries[i].box);
  return changed;
}

}  // namespace sim
