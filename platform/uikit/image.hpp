// UIImage.
#pragma once

#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/object.hpp"

struct UIImage : bridge::Face<"UIImage", NSObject> {
  MESSAGE Method<"size", CGSize()> size;     // points
  MESSAGE Method<"scale", CGFloat()> scale;  // pixels per point
};
