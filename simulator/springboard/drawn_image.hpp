// Pictures that are drawn rather than loaded.
#pragma once

#include "platform/uikit/image.hpp"
#include "platform/uikit/view.hpp"
#include "simulator/quartz/layer.hpp"

namespace sim::springboard {

// An image of `size` points at the screen's scale, drawn when it is first shown. Borrowed from the pool.
UIImage drawnImage(CGSize size, DrawFunction draw);

// Has a plain view show such a picture.
void showPicture(UIView view, CGSize size, DrawFunction draw);

}  // namespace sim::springboard
