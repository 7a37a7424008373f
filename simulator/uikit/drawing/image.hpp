// UIImage.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/image.hpp"
#include "simulator/quartz/layer.hpp"

namespace sim::uikit {

/** An image of `scale` pixels per point. The pixels are shared and must not change afterwards. */
bridge::Strong<UIImage> makeImage(Surface pixels, double scale);
/** An image of that size in points, drawn when it is first shown, at `scale` pixels per point. */
bridge::Strong<UIImage> makeImage(CGSize size, double scale, DrawFunction draw);

/** The image's pixels, drawn now if they are due; none for nil. */
Surface pixelsOf(UIImage image);
/** How many pixels those are, drawn or not. */
CGSize pixelSizeOf(UIImage image);

}  // namespace sim::uikit
