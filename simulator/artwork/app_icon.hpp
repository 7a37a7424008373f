// The pictures of application icons.
#pragma once

#include <cairo.h>

#include <string_view>

namespace sim {

enum class IconCorners { rounded, square };

/** Corner radius of a rounded icon as a fraction of its side. */
inline constexpr double iconCornerFraction = 0.225;

/** Draws the application's icon over (0,0) to (side, side), in points. Any name has a look (see appLook). */
void drawAppIcon(cairo_t* context, std::string_view name, double side, IconCorners corners);

}  // namespace sim
