// Pixels that a cairo context touches.
#include "simulator/quartz/pixels.hpp"

#include <cmath>

#include "simulator/quartz/affine.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {
namespace {

CGAffineTransform currentTransform(cairo_t* context) {
  cairo_matrix_t m;
  cairo_get_matrix(context, &m);
  return {m.xx, m.yx, m.xy, m.yy, m.x0, m.y0};
}

// The whole pixels that a rectangle of the current coordinates touches, with one to spare for soft edges.
CGRect devicePixels(cairo_t* context, const CGRect& rect) {
  const CGRect box = boundingBox(currentTransform(context), rect);
  const double left = std::floor(box.origin.x) - 1, top = std::floor(box.origin.y) - 1;
  return {{left, top},
          {std::ceil(box.origin.x + box.size.width) + 1 - left,
           std::ceil(box.origin.y + box.size.height) + 1 - top}};
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
