// Rounded rectangles.
#include "simulator/quartz/shapes.hpp"

#include <algorithm>
#include <numbers>

namespace sim {

void addRoundedRect(cairo_t* context, const CGRect& rect, double radius) {
  const double r = std::min<double>({radius, rect.size.width / 2, rect.size.height / 2});
  if (!(r > 0)) {
    cairo_rectangle(context, rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
    return;
  }
  const double left = rect.origin.x, top = rect.origin.y;
  const double right = left + rect.size.width, bottom = top + rect.size.height;
  constexpr double quarter = std::numbers::pi / 2;
  cairo_new_sub_path(context);
  cairo_arc(context, right - r, top + r, r, -quarter, 0);
  cairo_arc(context, right - r, bottom - r, r, 0, quarter);
  cairo_arc(context, left + r, bottom - r, r, quarter, 2 * quarter);
  cairo_arc(context, left + r, top + r, r, 2 * quarter, 3 * quarter);
  cairo_close_path(context);
}

void addContinuousRect(cairo_t* context, const CGRect& rect, double radius) {
  // The curve leaves the side 1.5 radii before the corner. For its middle to lie where the circle's does, at
  // r·(1 − √½) from either side, the control points stand c radii from the corner: (1.5 + 3c) / 8 = 1 − √½.
  constexpr double reach = 1.5;
  constexpr double control = (8 * (1 - std::numbers::sqrt2 / 2) - reach) / 3;
  const double shorter = std::min(rect.size.width, rect.size.height);
  const double r = std::min(radius, shorter / 2 / reach);
  const double far = reach * r, near = control * r;
  const double left = rect.origin.x, top = rect.origin.y;
  const double right = left + rect.size.width, bottom = top + rect.size.height;
  cairo_new_sub_path(context);
  cairo_move_to(context, right - far, top);
  cairo_curve_to(context, right - near, top, right, top + near, right, top + far);
  cairo_line_to(context, right, bottom - far);
  cairo_curve_to(context, right, bottom - near, right - near, bottom, right - far, bottom);
  cairo_line_to(context, left + far, bottom);
  cairo_curve_to(context, left + near, bottom, left, bottom - near, left, bottom - far);
  cairo_line_to(context, left, top + far);
  cairo_curve_to(context, left, top + near, left + near, top, left + far, top);
  cairo_close_path(context);
}

}  // namespace sim
