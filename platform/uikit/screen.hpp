// UIScreen.
#pragma once

#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/object.hpp"

struct UIScreen : bridge::Face<"UIScreen", NSObject> {
  static constexpr bridge::ClassMethod<"UIScreen", "mainScreen", UIScreen()> mainScreen{};
  MESSAGE Method<"bounds", CGRect()> bounds;              // points, in the current orientation
  MESSAGE Method<"nativeBounds", CGRect()> nativeBounds;  // pixels, always portrait
  MESSAGE Method<"scale", CGFloat()> scale;
};
