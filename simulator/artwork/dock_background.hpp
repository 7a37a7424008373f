// The panel behind the dock's icons.
#pragma once

#include <cairo.h>

#include "platform/coregraphics/geometry.hpp"

namespace sim {

/**
 * Draws a translucent, milky panel over (0,0) to `size`, in points. With a corner radius it floats, with soft
 * rims all around; without one it is joined to the edge of the screen and only its top has a rim.
 */
void drawDockBackground(cairo_t* context, CGSize size, double cornerRadius = 0);

}  // namespace sim
