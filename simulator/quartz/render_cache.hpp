// What the compositor keeps of a layer between pictures, and its way into a layer.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/render_node.hpp"
#include "simulator/quartz/runs.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/** Pixels of a part of a layer's own coordinate space. */
struct Bitmap {
  Surface image;
  CGPoint origin{};  // of the first pixel, in the layer's coordinates (points)
  double scale = 1;  // pixels per point
  Runs runs{};       // of a picture that is laid over others
};

/**
 * A layer with its children as flat pictures. They hold as long as `appearance` does: everything that goes
 * into them, in numbers, so that whatever changes below a rasterized or shadowed layer is noticed by
 * comparison.
 */
struct RenderCache {
  std::vector<double> appearance;
  std::uint64_t id;   // another one for every other appearance, over all layers
  Bitmap shadow;      // alpha only; before the offset is applied; none when not needed yet
  Bitmap rasterized;  // shadow and body; none when not needed yet
};

/** A layer's content and what is kept with it. */
class Inside {
 public:
  /** Whether there is any; it is drawn first when it is due. */
  static bool hasContent(Layer& layer, double scale);
  static cairo_surface_t* content(const Layer& layer) { return layer.contents.get(); }
  static CGSize contentSize(const Layer& layer) { return layer.contentsSize; }
  /** Of the content's picture, per point. */
  static double contentPixels(const Layer& layer);
  static std::uint64_t id(const Layer& layer) { return layer.id; }

  /** Whether pictures of the layer are kept. */
  static bool isKept(const Layer& layer);
  /** Of the pictures of a layer: its own when it is rasterized. */
  static double pixelsPerPoint(const Layer& layer, double scale);
  /**
   * What is kept of the layer: empty when anything that goes into it has changed, unless a layer that looked
   * like it was seen lately.
   */
  static RenderCache& cacheOf(RenderNode& node, double scale);
  /** All that makes the layer itself look as it does, in numbers. Draws its content when that is due. */
  static void describe(std::vector<double>& numbers, const RenderNode& node, double scale);
};

}  // namespace sim
