// What the compositor keeps of a layer between pictures.
#pragma once

#include <vector>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/** Pixels of a part of a layer's own coordinate space. */
struct Bitmap {
  Surface image;
  CGPoint origin{};  // of the first pixel, in the layer's coordinates (points)
  double scale = 1;  // pixels per point
};

/**
 * A layer with its children as flat pictures. They hold as long as `appearance` does: everything that goes
 * into them, in numbers, so that whatever changes below a rasterized or shadowed layer is noticed by
 * comparison.
 */
struct RenderCache {
  std::vector<double> appearance;
  Bitmap shadow;      // alpha only; before the offset is applied; none when not needed yet
  Bitmap rasterized;  // shadow and body; none when not needed yet
};

}  // namespace sim
