// Pictures laid over a screen between its pixels, row by row, with whole numbers alone: the same on every
// processor.
#pragma once

#include <vector>

#include "simulator/quartz/region.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/** Pixels of a row: from `inkBegin` on it is not clear, up to `inkEnd`, and opaque in a stretch within that.
 */
struct RowSpan {
  int inkBegin, opaqueBegin, opaqueEnd, inkEnd;
};

/** Of each row of an ARGB32 image. */
std::vector<RowSpan> spansOf(cairo_surface_t* image);

/** A place in sixteen bits of whole pixels and as many of fractions. */
struct FixedPoint {
  int x, y;
};

/**
 * Lays an ARGB32 image over another's rectangle. The pixel (0, 0) of the target shows what is at `from` in
 * the image, which is clear beyond its edges; between its pixels neighbours are mixed in steps of 1/128.
 * Every pixel comes out as with cairo's usual filter.
 */
void layOver(cairo_surface_t* target, const PixelRect& rect, cairo_surface_t* image,
             const std::vector<RowSpan>& spans, FixedPoint from);

}  // namespace sim
