// The pictures of icon labels, and what they are made from.
#pragma once

#include "platform/foundation/string.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/font.hpp"
#include "platform/uikit/image.hpp"

struct SBIconLabelImageParameters : bridge::Face<"SBIconLabelImageParameters", NSObject> {
  MESSAGE Method<"text", NSString()> text;
  MESSAGE Method<"textColor", UIColor()> textColor;
  MESSAGE OptionalMethod<"shadowColor", UIColor()> shadowColor;
};

struct SBIconLabelImage : bridge::Face<"SBIconLabelImage", UIImage> {
  // Where the label's text goes in a rectangle of points; draws it there when asked to.
  static constexpr bridge::ClassMethod<"SBIconLabelImage", "_rectWithDrawing:inRect:fromParameters:",
                                       CGRect(BOOL, CGRect, SBIconLabelImageParameters)>
      _rectWithDrawing_inRect_fromParameters{};
};
