// A cairo context's coordinates against the pixels below them.
#pragma once

#include <cairo.h>

#include <optional>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/region.hpp"

namespace sim {

/** Goes on in coordinates that `t` leads out of. */
void applyTransform(cairo_t* context, const CGAffineTransform& t);
/** Whether a rectangle of the current coordinates cannot touch a pixel that may be painted. */
bool isOutsideClip(cairo_t* context, const CGRect& rect);
/** The pixels of `clip` that a rectangle may touch that `matrix` takes to the screen. */
PixelRect pixelsWithin(const PixelRect& clip, const cairo_matrix_t& matrix, const CGRect& rect);
/** The pixels that may be painted, if they are one rectangle. */
std::optional<PixelRect> clipRectangle(cairo_t* context);
/** Lets only the whole pixels around the rectangle be painted: keeps a group's picture small. */
void clipToPixels(cairo_t* context, const CGRect& rect);

}  // namespace sim
