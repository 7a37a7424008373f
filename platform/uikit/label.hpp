// UILabel.
#pragma once

#include "platform/foundation/string.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/font.hpp"
#include "platform/uikit/view.hpp"

// NSTextAlignment
enum : NSInteger {
  NSTextAlignmentLeft = 0,
  NSTextAlignmentCenter = 1,
  NSTextAlignmentRight = 2,
  NSTextAlignmentJustified = 3,
  NSTextAlignmentNatural = 4
};

// NSLineBreakMode
enum : NSInteger {
  NSLineBreakByWordWrapping = 0,
  NSLineBreakByCharWrapping,
  NSLineBreakByClipping,
  NSLineBreakByTruncatingHead,
  NSLineBreakByTruncatingTail,
  NSLineBreakByTruncatingMiddle
};

struct UILabel : bridge::Face<"UILabel", UIView> {
  MESSAGE Property<"text", NSString> text;
  MESSAGE Property<"font", UIFont> font;
  MESSAGE Property<"textColor", UIColor> textColor;
  MESSAGE Property<"shadowColor", UIColor> shadowColor;
  MESSAGE Property<"shadowOffset", CGSize> shadowOffset;  // points
  MESSAGE Property<"textAlignment", NSInteger> textAlignment;
  MESSAGE Property<"lineBreakMode", NSInteger> lineBreakMode;
  MESSAGE Property<"numberOfLines", NSInteger> numberOfLines;  // 0: as many as it takes
};
