// Pictures laid over a screen between its pixels, row by row, with whole numbers alone: the same on every
// processor.
#pragma once

#include "simulator/quartz/region.hpp"
#include "simulator/quartz/runs.hpp"
#include "simulator/quartz/sampling.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/**
 * Lays an ARGB32 image over another's rectangle. The image is clear beyond its edges; between its pixels
 * neighbours are mixed in steps of 1/128. Every pixel comes out as with cairo's usual filter.
 */
void layOver(cairo_surface_t* target, const PixelRect& rect, cairo_surface_t* image, const Runs& runs,
             const Sampling& sampling);

}  // namespace sim
