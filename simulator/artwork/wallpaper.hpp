// The picture behind the icons.
#pragma once

#include <cairo.h>

#include "platform/coregraphics/geometry.hpp"

namespace sim {

/** Draws the wallpaper over (0,0) to `size`, in points; made for any size and either orientation. */
void drawWallpaper(cairo_t* context, CGSize size);

}  // namespace sim
