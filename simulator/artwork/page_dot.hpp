// The dots that stand for the home screen's pages.
#pragma once

#include <cairo.h>

#include "platform/coregraphics/geometry.hpp"

namespace sim {

/** Side of a dot's picture, points; dots are set 16 points apart. */
inline constexpr double pageDotSide = 7;

/** Draws a dot as large as fits into the middle of (0,0) to `size`, in points; that of other pages is faint.
 */
void drawPageDot(cairo_t* context, CGSize size, bool current);

}  // namespace sim
