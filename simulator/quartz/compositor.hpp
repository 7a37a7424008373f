// Paints a tree of layers as it is seen at a given time.
#pragma once

#include "simulator/quartz/layer.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/**
 * Paints the tree over what `target` holds. `scale` is pixels per point; `now` seconds. The root lies in the
 * picture as a child would in its parent. Depends on nothing but the tree, the time and the scale, so that
 * the same picture comes out every time. Calls the draw functions of contents that are shown and due. Throws
 * std::runtime_error when cairo fails.
 */
void composite(Layer& root, double now, cairo_surface_t* target, double scale);

/** The same into a new ARGB32 image over opaque black, as on a screen; sizes in pixels. */
Surface compositeScreen(Layer& root, double now, int pixelWidth, int pixelHeight, double scale);

}  // namespace sim
