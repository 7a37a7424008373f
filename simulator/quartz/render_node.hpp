// A layer tree frozen at one time: what the compositor paints from.
#pragma once

#include <optional>
#include <vector>

#include "simulator/quartz/layer.hpp"
#include "simulator/quartz/region.hpp"

namespace sim {

/** A layer that can be seen, with its values as presented. */
struct RenderNode {
  Layer* layer;
  LayerValues values;
  CGAffineTransform toParent;
  CGRect bodyExtents;  // all it and its children may paint, in its own coordinates, without its shadow
  CGRect extents;      // with it
  std::vector<RenderNode> children;

  // What it keeps for the compositor, once that has been looked up.
  RenderCache* cache = nullptr;
  // Of a node of a display list: the pixels that it and its children may touch, and the entries that they
  // have.
  PixelRect reach{};
  // Of all of them; the entry at `first` is its own, unless it paints nothing below its children.
  int first = 0, end = 0;
  bool isWhole = false;    // one entry for all of it
  bool hasGround = false;  // background and content
  bool hasBorder = false;  // its last entry
};

/** How far, in points, anything is painted beyond a layer's bounds: further than the largest screen's 1366.
 */
inline constexpr double farthestOverhang = 1400;

/** None when nothing of the layer is to be seen: hidden, fully transparent or flattened. */
std::optional<RenderNode> freeze(Layer& layer, double now);

/** Whether a shadow is painted. One that masks to its bounds cuts its own shadow off. */
bool castsShadow(const Layer& layer);

/** Where the content lies in the layer's coordinates, by its gravity; sizes in points. */
CGRect contentRect(const CGRect& bounds, CGSize content, ContentsGravity gravity);

}  // namespace sim
