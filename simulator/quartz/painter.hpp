// Paints what a display list tells.
#pragma once

#include <cstddef>

#include "simulator/quartz/display_list.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/**
 * Paints the entries from one up to another over what the target's rectangle holds. Throws std::runtime_error
 * when cairo fails.
 */
void paintEntries(cairo_surface_t* target, DisplayList& list, double scale, std::size_t from, std::size_t end,
                  const PixelRect& rect);

}  // namespace sim
