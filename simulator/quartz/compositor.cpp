// Painting of layer trees, all of them anew.
#include "simulator/quartz/compositor.hpp"

#include "simulator/quartz/painter.hpp"
#include "simulator/quartz/screen.hpp"

namespace sim {

void composite(Layer& root, double now, cairo_surface_t* target, double scale) {
  const PixelRect all{0, 0, cairo_image_surface_get_width(target), cairo_image_surface_get_height(target)};
  Layer* const roots[] = {&root};
  DisplayList list = listOf(roots, now, all, scale);
  paintEntries(target, list, scale, 0, list.entries.size(), all);
  cairo_surface_flush(target);
}

Surface compositeScreen(Layer& root, double now, int pixelWidth, int pixelHeight, double scale) {
  Layer* const roots[] = {&root};
  return PaintedScreen().draw(roots, now, pixelWidth, pixelHeight, scale);
}

}  // namespace sim
