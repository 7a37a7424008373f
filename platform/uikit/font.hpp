// UIFont.
#pragma once

#include "platform/coregraphics/geometry.hpp"
#include "platform/foundation/string.hpp"

// Sizes in points.
struct UIFont : bridge::Face<"UIFont", NSObject> {
  static constexpr bridge::ClassMethod<"UIFont", "systemFontOfSize:", UIFont(CGFloat)> systemFontOfSize{};
  static constexpr bridge::ClassMethod<"UIFont", "boldSystemFontOfSize:", UIFont(CGFloat)>
      boldSystemFontOfSize{};
  // Nil when there is no font of that name.
  static constexpr bridge::ClassMethod<"UIFont", "fontWithName:size:", UIFont(NSString, CGFloat)>
      fontWithName_size{};
  MESSAGE Method<"fontName", NSString()> fontName;
  MESSAGE Method<"pointSize", CGFloat()> pointSize;
};
