// UIWindow.
#pragma once

#include <vector>

#include "platform/uikit/window.hpp"

namespace sim::uikit {

/** Every window there is, back to front: by level, then by when it last came to the front. Borrowed. */
std::vector<UIWindow> windows();
/** The window that keys go to; none when there is none. */
UIWindow keyWindow();

}  // namespace sim::uikit
