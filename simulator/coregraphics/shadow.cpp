// Shadows of what is drawn.
#include <cmath>

#include "simulator/coregraphics/context.hpp"
#include "simulator/quartz/blur.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {
namespace {

// Whole pixels.
struct PixelArea {
  int left, top, width, height;
};

// What may be painted, with `margin` pixels around it; empty where nothing may.
PixelArea paintable(cairo_t* cairo, int margin) {
  double left, top, right, bottom;
  cairo_matrix_t matrix;
  cairo_get_matrix(cairo, &matrix);
  cairo_identity_matrix(cairo);
  cairo_clip_extents(cairo, &left, &top, &right, &bottom);
  cairo_set_matrix(cairo, &matrix);
  if (right <= left || bottom <= top) return {};
  const int x = static_cast<int>(std::floor(left)), y = static_cast<int>(std::floor(top));
  return {x - margin, y - margin, static_cast<int>(std::ceil(right)) - x + 2 * margin,
          static_cast<int>(std::ceil(bottom)) - y + 2 * margin};
}

// Path and line of `from`, in pixels of an image whose corner lies at (left, top) of `from`'s.
void takeOver(cairo_t* to, cairo_t* from, double left, double top) {
  cairo_matrix_t matrix;
  cairo_get_matrix(from, &matrix);
  matrix.x0 -= left;
  matrix.y0 -= top;
  cairo_set_matrix(to, &matrix);
  cairo_path_t* path = cairo_copy_path(from);
  cairo_append_path(to, path);
  cairo_path_destroy(path);
  cairo_set_line_width(to, cairo_get_line_width(from));
  cairo_set_line_cap(to, cairo_get_line_cap(from));
  cairo_set_line_join(to, cairo_get_line_join(from));
}

void drawShadow(CGContext& context, const std::function<void(cairo_t*)>& draw) {
  const CGContext::State& state = context.state();
  double right = state.shadowOffset.width, down = state.shadowOffset.height;
  cairo_user_to_device_distance(context.cairo, &right, &down);
  double deviation = state.shadowBlur / 2, across = 0;
  cairo_user_to_device_distance(context.cairo, &deviation, &across);
  deviation = std::hypot(deviation, across);
  const PixelArea area = paintable(context.cairo, static_cast<int>(std::ceil(blurReach(deviation))));
  if (area.width <= 0) return;
  const Surface image = makeImage(area.width, area.height);
  {
    const Context inside(image.get());
    takeOver(inside, context.cairo, area.left - right, area.top - down);
    draw(inside);
  }
  const Surface shadow = deviation > 0 ? blurredAlpha(image.get(), deviation) : image;
  const SavedState saved(context.cairo);
  cairo_identity_matrix(context.cairo);
  setSource(context.cairo, state.shadow);
  cairo_mask_surface(context.cairo, shadow.get(), area.left, area.top);
}

}  // namespace

void drawWithShadow(CGContext& context, const std::function<void(cairo_t*)>& draw) {
  if (context.state().shadow.alpha > 0) drawShadow(context, draw);
  draw(context.cairo);
}

}  // namespace sim
