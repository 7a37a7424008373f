// UIButton.
#pragma once

#include "platform/uikit/control.hpp"
#include "platform/uikit/image.hpp"
#include "platform/uikit/label.hpp"

// UIButtonType
enum : NSInteger { UIButtonTypeCustom = 0, UIButtonTypeSystem = 1 };

// States are the control's; what is not set for a state is that of the normal one.
struct UIButton : bridge::Face<"UIButton", UIControl> {
  static constexpr bridge::ClassMethod<"UIButton", "buttonWithType:", UIButton(NSInteger)> buttonWithType{};
  MESSAGE Method<"buttonType", NSInteger()> buttonType;
  MESSAGE Method<"titleLabel", UILabel()> titleLabel;
  MESSAGE Method<"titleForState:", NSString(NSUInteger)> titleForState;
  MESSAGE Method<"setTitle:forState:", void(NSString, NSUInteger)> setTitle_forState;
  MESSAGE Method<"titleColorForState:", UIColor(NSUInteger)> titleColorForState;
  MESSAGE Method<"setTitleColor:forState:", void(UIColor, NSUInteger)> setTitleColor_forState;
  MESSAGE Method<"titleShadowColorForState:", UIColor(NSUInteger)> titleShadowColorForState;
  MESSAGE Method<"setTitleShadowColor:forState:", void(UIColor, NSUInteger)> setTitleShadowColor_forState;
  MESSAGE Method<"imageForState:", UIImage(NSUInteger)> imageForState;
  MESSAGE Method<"setImage:forState:", void(UIImage, NSUInteger)> setImage_forState;
  MESSAGE Method<"currentTitle", NSString()> currentTitle;
  MESSAGE Method<"currentTitleColor", UIColor()> currentTitleColor;
  MESSAGE Method<"currentTitleShadowColor", UIColor()> currentTitleShadowColor;
  MESSAGE Method<"titleRectForContentRect:", CGRect(CGRect)> titleRectForContentRect;
};
