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
  MESSAGE Method<"text", NSString()> text;
  MESSAGE Method<"setText:", void(NSString)> setText;
  MESSAGE Method<"font", UIFont()> font;
  MESSAGE Method<"setFont:", void(UIFont)> setFont;
  MESSAGE Method<"textColor", UIColor()> textColor;
  MESSAGE Method<"setTextColor:", void(UIColor)> setTextColor;
  MESSAGE Method<"shadowColor", UIColor()> shadowColor;
  MESSAGE Method<"setShadowColor:", void(UIColor)> setShadowColor;
  MESSAGE Method<"shadowOffset", CGSize()> shadowOffset;  // points
  MESSAGE Method<"setShadowOffset:", void(CGSize)> setShadowOffset;
  MESSAGE Method<"textAlignment", NSInteger()> textAlignment;
  MESSAGE Method<"setTextAlignment:", void(NSInteger)> setTextAlignment;
  MESSAGE Method<"lineBreakMode", NSInteger()> lineBreakMode;
  MESSAGE Method<"setLineBreakMode:", void(NSInteger)> setLineBreakMode;
  MESSAGE Method<"numberOfLines", NSInteger()> numberOfLines;  // 0: as many as it takes
  MESSAGE Method<"setNumberOfLines:", void(NSInteger)> setNumberOfLines;
};
