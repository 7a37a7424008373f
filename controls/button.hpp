// BButton: a button that draws its own rounded, coloured background and may carry a Font Awesome icon.
#pragma once

#include "bridge/property.hpp"
#include "platform/coregraphics/context.hpp"
#include "platform/foundation/number.hpp"
#include "platform/uikit/button.hpp"

namespace tilo {

// Kinds of button by their colour.
enum : NSUInteger {
  BButtonTypeDefault = 0,
  BButtonTypePrimary,
  BButtonTypeInfo,
  BButtonTypeSuccess,
  BButtonTypeWarning,
  BButtonTypeDanger,
  BButtonTypeInverse,
  BButtonTypeTwitter,
  BButtonTypeFacebook,
  BButtonTypePurple,
  BButtonTypeGray,
  BButtonTypeClear
};

// Looks.
enum : NSUInteger {
  BButtonStyleBootstrapV2 = 0,  // gradients and shadows
  BButtonStyleBootstrapV3 = 1   // flat
};

struct BButton : bridge::Face<"BButton", UIButton> {
  static constexpr bridge::ClassMethod<"BButton", "awesomeButtonWithOnlyIcon:type:style:",
                                       BButton(NSUInteger, NSUInteger, NSUInteger)>
      awesomeButtonWithOnlyIcon_type_style{};
  static constexpr bridge::ClassMethod<"BButton", "awesomeButtonWithOnlyIcon:color:style:",
                                       BButton(NSUInteger, UIColor, NSUInteger)>
      awesomeButtonWithOnlyIcon_color_style{};
  static constexpr bridge::ClassMethod<"BButton",
                                       "colorForButtonType:style:", UIColor(NSUInteger, NSUInteger)>
      colorForButtonType_style{};
  static constexpr bridge::ClassMethod<"BButton", "colorForV2StyleButtonWithType:", UIColor(NSUInteger)>
      colorForV2StyleButtonWithType{};
  static constexpr bridge::ClassMethod<"BButton", "colorForV3StyleButtonWithType:", UIColor(NSUInteger)>
      colorForV3StyleButtonWithType{};
  static constexpr bridge::ClassMethod<"BButton", "cornerRadiusForStyle:", NSNumber(NSUInteger)>
      cornerRadiusForStyle{};

  MESSAGE Method<"initWithFrame:type:style:", BButton(CGRect, NSUInteger, NSUInteger)>
      initWithFrame_type_style;
  MESSAGE Method<"initWithFrame:color:style:", BButton(CGRect, UIColor, NSUInteger)>
      initWithFrame_color_style;
  // The icon is a Font Awesome code, the font size in points.
  MESSAGE Method<"initWithFrame:type:style:icon:fontSize:",
                 BButton(CGRect, NSUInteger, NSUInteger, NSUInteger, CGFloat)>
      initWithFrame_type_style_icon_fontSize;
  MESSAGE Method<"initWithFrame:color:style:icon:fontSize:",
                 BButton(CGRect, UIColor, NSUInteger, NSUInteger, CGFloat)>
      initWithFrame_color_style_icon_fontSize;
  MESSAGE Method<"initWithCoder:", BButton(bridge::Object)> initWithCoder;
  MESSAGE Method<"setup", void()> setup;

  MESSAGE Property<"color", UIColor> color;
  MESSAGE Property<"buttonStyle", NSUInteger> buttonStyle;
  // Points, chosen by appearance and style when it is first asked for.
  MESSAGE Property<"buttonCornerRadius", NSNumber> buttonCornerRadius;
  MESSAGE Property<"shouldShowDisabled", BOOL> shouldShowDisabled;
  MESSAGE Method<"setType:", void(NSUInteger)> setType;
  MESSAGE Method<"setStyle:", void(NSUInteger)> setStyle;
  MESSAGE Method<"setTextAttributesForStyle:", void(NSUInteger)> setTextAttributesForStyle;
  MESSAGE Method<"addAwesomeIcon:beforeTitle:", void(NSUInteger, BOOL)> addAwesomeIcon_beforeTitle;
  MESSAGE Method<"stringByTrimingWhiteSpaceFromString:", NSString(NSString)>
      stringByTrimingWhiteSpaceFromString;
  MESSAGE Method<"isStringEmpty:", BOOL(NSString)> isStringEmpty;
  MESSAGE Method<"drawBButtonStyleV2InRect:withContext:", void(CGRect, CGContextRef)>
      drawBButtonStyleV2InRect_withContext;
  MESSAGE Method<"drawBButtonStyleV3InRect:withContext:", void(CGRect, CGContextRef)>
      drawBButtonStyleV3InRect_withContext;
};

void defineButton();

}  // namespace tilo
