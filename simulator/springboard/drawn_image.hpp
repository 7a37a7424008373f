// Images that are drawn rather than loaded.
#pragma once

#include "platform/uikit/image.hpp"
#include "simulator/quartz/layer.hpp"

namespace sim::springboard {

// An image of `size` points at the screen's scale, drawn when it is first shown. Borrowed from the pool.
UIImage drawnImage(CGSize size, DrawFunction draw);

}  // namespace sim::springboard
