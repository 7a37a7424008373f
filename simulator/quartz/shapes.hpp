// Outlines, added to a cairo context's path.
#pragma once

#include <cairo.h>

#include "platform/coregraphics/geometry.hpp"

namespace sim {

/** A rectangle with circular corners, as cornerRadius makes it; the radius is cut to half the shorter side.
 */
void addRoundedRect(cairo_t* context, const CGRect& rect, double radius);

/**
 * A rectangle whose corners grow out of the sides without a jump in curvature, as application icons have
 * them. Passes through the middle of the circular corner of the same radius.
 */
void addContinuousRect(cairo_t* context, const CGRect& rect, double radius);

}  // namespace sim
