// Pixels that a cairo context touches.
#include "simulator/quartz/pixels.hpp"

#include <algorithm>
#include <cmath>
#include <memory>

#include "simulator/quartz/affine.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {
namespace {

// The whole pixels that a rectangle touches, with one to spare for soft edges.
CGRect devicePixels(const cairo_matrix_t& m, const CGRect& rect) {
  const CGRect box = boundingBox({m.xx, m.yx, m.xy, m.yy, m.x0, m.y0}, rect);
  const double left = std::floor(box.origin.x) - 1, top = std::floor(box.origin.y) - 1;
  return {{left, top},
          {std::ceil(box.origin.x + box.size.width) + 1 - left,
           std::ceil(box.origin.y + box.size.height) + 1 - top}};
}

// The same of the context's coordinates.
CGRect devicePixels(cairo_t* context, const CGRect& rect) {
  cairo_matrix_t current;
  cairo_get_matrix(context, &current);
  return devicePixels(current, rect);
}

}  // namespace

void applyTransform(cairo_t* context, const CGAffineTransform& t) {
  const cairo_matrix_t matrix{t.a, t.b, t.c, t.d, t.tx, t.ty};
  cairo_transform(context, &matrix);
}

bool isOutsideClip(cairo_t* context, const CGRect& rect) {
  const CGRect box = devicePixels(context, rect);
  const SavedState saved(context);
  cairo_identity_matrix(context);
  double left, top, right, bottom;
  cairo_clip_extents(context, &left, &top, &right, &bottom);
  return box.origin.x >= right || box.origin.y >= bottom || box.origin.x + box.size.width <= left ||
         box.origin.y + box.size.height <= top;
}

PixelRect pixelsWithin(const PixelRect& clip, const cairo_matrix_t& matrix, const CGRect& rect) {
  const CGRect box = devicePixels(matrix, rect);
  const double left = std::max<double>(box.origin.x, clip.x), top = std::max<double>(box.origin.y, clip.y);
  const double right = std::min<double>(box.origin.x + box.size.width, clip.x + clip.width);
  const double bottom = std::min<double>(box.origin.y + box.size.height, clip.y + clip.height);
  if (!(left < right && top < bottom)) return {};
  return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
          static_cast<int>(bottom - top)};
}

std::optional<PixelRect> clipRectangle(cairo_t* context) {
  const SavedState saved(context);
  cairo_identity_matrix(context);
  const std::unique_ptr<cairo_rectangle_list_t, decltype(&cairo_rectangle_list_destroy)> list(
      cairo_copy_clip_rectangle_list(context), cairo_rectangle_list_destroy);
  if (list->status != CAIRO_STATUS_SUCCESS || list->num_rectangles > 1) return std::nullopt;
  if (list->num_rectangles == 0) return PixelRect{};
  const cairo_rectangle_t& one = *list->rectangles;
  return PixelRect{static_cast<int>(one.x), static_cast<int>(one.y), static_cast<int>(one.width),
                   static_cast<int>(one.height)};
}

void clipToPixels(cairo_t* context, const CGRect& rect) {
  const CGRect box = devicePixels(context, rect);
  const cairo_matrix_t identity{1, 0, 0, 1, 0, 0};
  cairo_matrix_t current;
  cairo_get_matrix(context, &current);
  cairo_set_matrix(context, &identity);
  cairo_rectangle(context, box.origin.x, box.origin.y, box.size.width, box.size.height);
  cairo_clip(context);
  cairo_set_matrix(context, &current);
}

}  // namespace sim
