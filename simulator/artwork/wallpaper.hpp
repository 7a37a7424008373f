// The picture behind the icons.
#pragma once

#include <cairo.h>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/** Draws the wallpaper over (0,0) to `size`, in points; made for any size and either orientation. */
void drawWallpaper(cairo_t* context, CGSize size);

/** The same as a picture for a screen of that size in points, made when it is first asked for and shared. */
Surface wallpaper(CGSize size, double scale);

}  // namespace sim
