// A tree of layers painted all anew, as a test wants to see it.
#pragma once

#include "simulator/quartz/painter.hpp"
#include "simulator/quartz/screen.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

// Over what `target` holds; `scale` is pixels per point, `now` seconds. The root lies in the picture as a
// child would in its parent.
inline void composite(Layer& root, double now, cairo_surface_t* target, double scale) {
  const PixelRect all{0, 0, cairo_image_surface_get_width(target), cairo_image_surface_get_height(target)};
  Layer* const roots[] = {&root};
  DisplayList list = listOf(roots, now, all, scale);
  paintEntries(target, list, scale, 0, list.entries.size(), all);
  cairo_surface_flush(target);
}

// Into a new picture, over opaque black as on a screen; sizes in pixels.
inline Surface compositeScreen(Layer& root, double now, int pixelWidth, int pixelHeight, double scale) {
  Layer* const roots[] = {&root};
  return PaintedScreen().draw(roots, now, pixelWidth, pixelHeight, scale);
}

}  // namespace sim
