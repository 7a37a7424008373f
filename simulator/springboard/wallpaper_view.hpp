// The wallpaper behind the home screen and the lock screen.
#pragma once

#include "platform/uikit/image_view.hpp"

namespace sim::springboard {

// Fills whatever view it is resized with; the picture is as large as the longer side needs, so that it serves
// both orientations.
bridge::Strong<UIImageView> makeWallpaperView(CGSize size);

}  // namespace sim::springboard
