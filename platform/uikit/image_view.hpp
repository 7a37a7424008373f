// UIImageView.
#pragma once

#include "platform/uikit/image.hpp"
#include "platform/uikit/view.hpp"

struct UIImageView : bridge::Face<"UIImageView", UIView> {
  MESSAGE Method<"initWithImage:", UIImageView(UIImage)> initWithImage;
  MESSAGE Property<"image", UIImage> image;
};
