// BButton's class.
#include "controls/button.hpp"

#include "bridge/define.hpp"
#include "controls/button_colors.hpp"
#include "controls/button_drawing.hpp"
#include "controls/icon_string.hpp"
#include "platform/foundation/character_set.hpp"

namespace tilo {
namespace {

using bridge::Strong;

constexpr CGRect iconFrame{{0, 0}, {40, 40}};  // of a button with nothing but an icon
constexpr CGFloat iconFontSize = 20;
constexpr CGFloat titleFontSize = 17;

struct ButtonState {
  Strong<UIColor> color;
  Strong<NSNumber> cornerRadius;
  NSUInteger style = BButtonStyleBootstrapV2;
  BOOL shouldShowDisabled{};
};

using Button = bridge::Implementation<BButton, ButtonState>;

// The proxy that holds what is wanted of all buttons; it answers as a button.
using Appearance = bridge::ClassMethod<"BButton", "appearance", BButton()>;

BOOL isLight(UIColor color) { return bridge::as<ButtonColor>(color).bb_isLightColor(); }

UIFont awesomeFont(CGFloat size) { return UIFont::fontWithName_size("FontAwesome"_ns, size); }

// Colours.

void showDisabled(BButton self) {
  const bool light = isLight(self.color());
  UIColor title = light ? UIColor::blackColor() : UIColor::whiteColor();
  if (self.shouldShowDisabled()) title = UIColor::colorWithWhite_alpha(light ? 0.4f : 1.0f, 0.5f);
  self.setTitleColor_forState(title, UIControlStateDisabled);
}

UIColor color(BButton self) { return Button::state(self).color; }

void setColor(BButton self, UIColor value) {
  Button::state(self).color = retained(value);
  const bool light = isLight(value);
  const UIColor title = light ? UIColor::blackColor() : UIColor::whiteColor();
  const UIColor shadow = light ? UIColor::whiteColor() : UIColor::blackColor();
  self.setTitleColor_forState(title, UIControlStateNormal);
  self.setTitleShadowColor_forState(shadow.colorWithAlphaComponent(0.6f), UIControlStateNormal);
  if (self.shouldShowDisabled()) showDisabled(self);
  self.setNeedsDisplay();
}

BOOL shouldShowDisabled(BButton self) { return Button::state(self).shouldShowDisabled; }

void setShouldShowDisabled(BButton self, BOOL value) {
  Button::state(self).shouldShowDisabled = value;
  showDisabled(self);
}

UIColor colorForV2(Class, NSUInteger type) { return raisedColor(type); }
UIColor colorForV3(Class, NSUInteger type) { return flatColor(type); }

UIColor colorForType(Class self, NSUInteger type, NSUInteger style) {
  return style != BButtonStyleBootstrapV2 ? BButton::colorForV3StyleButtonWithType.on(self, type)
                                          : BButton::colorForV2StyleButtonWithType.on(self, type);
}

// Style.

Class classOf(BButton self) { return bridge::Message<"class", Class()>::send(self.raw); }

void setType(BButton self, NSUInteger type) {
  self.color.set(BButton::colorForButtonType_style.on(classOf(self), type, self.buttonStyle()));
}

void setStyle(BButton self, NSUInteger style) {
  self.buttonStyle.set(style);
  self.color.set(self.color());
}

void setTextAttributes(BButton self, NSUInteger style) {
  UILabel label = self.titleLabel();
  if (style == BButtonStyleBootstrapV2) {
    label.shadowOffset.set({0, -1});
    label.font.set(UIFont::boldSystemFontOfSize(titleFontSize));
  } else if (style == BButtonStyleBootstrapV3) {
    label.shadowOffset.set({0, 0});
    label.font.set(UIFont::systemFontOfSize(titleFontSize));
  }
}

NSNumber cornerRadiusForStyle(Class, NSUInteger style) {
  if (style == BButtonStyleBootstrapV2) return NSNumber::numberWithFloat(6);
  if (style == BButtonStyleBootstrapV3) return NSNumber::numberWithFloat(4);
  return NSNumber::numberWithInt(0);
}

NSNumber cornerRadius(BButton self) {
  if (!Button::state(self).cornerRadius) {
    const Class cls = classOf(self);
    NSNumber radius = Appearance().on(cls).buttonCornerRadius();
    if (!radius) radius = BButton::cornerRadiusForStyle.on(cls, self.buttonStyle());
    Button::state(self).cornerRadius = retained(radius);
  }
  return Button::state(self).cornerRadius;
}

void setCornerRadius(BButton self, NSNumber radius) { Button::state(self).cornerRadius = retained(radius); }

template <auto Setter>
void setFlag(BButton self, BOOL value) {
  Button::super<Setter>(self, value);
  self.setNeedsDisplay();
}

// Making one.

void setup(BButton self) {
  self.backgroundColor.set(UIColor::clearColor());
  Button::state(self).shouldShowDisabled = YES;
  Button::state(self).style = BButtonStyleBootstrapV3;
  self.setType(BButtonTypeDefault);
}

Strong<UIView> initWithFrame(BButton self, CGRect frame) {
  auto made = Button::superInit<&UIView::initWithFrame>(self, frame);
  made->setup();
  made->setTextAttributesForStyle(made->buttonStyle());
  return made;
}

Strong<BButton> initWithCoder(BButton self, bridge::Object coder) {
  auto made = Button::super<&BButton::initWithCoder>(self, coder);
  made->setup();
  return made;
}

Strong<BButton> initWithColor(BButton self, CGRect frame, UIColor value, NSUInteger style) {
  auto made = bridge::initialised<&UIView::initWithFrame>(self, frame);
  made->buttonStyle.set(style);
  made->color.set(value);
  made->setTextAttributesForStyle(style);
  return made;
}

Strong<BButton> initWithType(BButton self, CGRect frame, NSUInteger type, NSUInteger style) {
  const UIColor ofType = BButton::colorForButtonType_style.on(classOf(self), type, style);
  return bridge::Descriptor<&BButton::initWithFrame_color_style>::send(self.raw, frame, ofType, style);
}

void showIcon(BButton self, NSUInteger icon, CGFloat fontSize) {
  self.titleLabel().font.set(awesomeFont(fontSize));
  self.titleLabel().textAlignment.set(NSTextAlignmentCenter);
  self.setTitle_forState(iconString(icon), UIControlStateNormal);
}

Strong<BButton> initWithColorIcon(BButton self, CGRect frame, UIColor value, NSUInteger style,
                                  NSUInteger icon, CGFloat fontSize) {
  auto made = bridge::Descriptor<&BButton::initWithFrame_color_style>::send(self.raw, frame, value, style);
  showIcon(made, icon, fontSize);
  return made;
}

Strong<BButton> initWithTypeIcon(BButton self, CGRect frame, NSUInteger type, NSUInteger style,
                                 NSUInteger icon, CGFloat fontSize) {
  auto made = bridge::Descriptor<&BButton::initWithFrame_type_style>::send(self.raw, frame, type, style);
  showIcon(made, icon, fontSize);
  return made;
}

// Of the class that the message went to.
BButton onlyIconOfType(Class self, NSUInteger icon, NSUInteger type, NSUInteger style) {
  return bridge::makeOf<BButton, &BButton::initWithFrame_type_style_icon_fontSize>(self, iconFrame, type,
                                                                                   style, icon, iconFontSize)
      .autoreleased();
}

BButton onlyIconOfColor(Class self, NSUInteger icon, UIColor value, NSUInteger style) {
  return bridge::makeOf<BButton, &BButton::initWithFrame_color_style_icon_fontSize>(self, iconFrame, value,
                                                                                    style, icon, iconFontSize)
      .autoreleased();
}

// Titles.

NSString trimmed(BButton, NSString text) {
  return bridge::as<TrimmableString>(text).stringByTrimmingCharactersInSet(
      NSCharacterSet::whitespaceAndNewlineCharacterSet());
}

// No text at all is empty as well.
BOOL isEmpty(BButton self, NSString text) {
  NSString rest = self.stringByTrimingWhiteSpaceFromString(text);
  return !rest || rest.isEqualToString(""_ns);
}

void addIcon(BButton self, NSUInteger icon, BOOL before) {
  NSString title = iconString(icon);
  const NSString old = self.currentTitle();
  self.titleLabel().font.set(awesomeFont(self.titleLabel().font().pointSize()));
  if (!self.isStringEmpty(old)) {
    const NSString first = before ? title : old, second = before ? old : title;
    title = first.stringByAppendingString(" "_ns).stringByAppendingString(second);
  }
  self.setTitle_forState(title, UIControlStateNormal);
}

}  // namespace

void defineButton() {
  using bridge::method;
  using Face = BButton;
  addButtonColors();
  addIconString();
  Button::define<UIButton>(
      method<&UIView::initWithFrame, initWithFrame>(),
      method<&Face::initWithFrame_type_style, initWithType>(),
      method<&Face::initWithFrame_color_style, initWithColor>(),
      method<&Face::initWithFrame_type_style_icon_fontSize, initWithTypeIcon>(),
      method<&Face::initWithFrame_color_style_icon_fontSize, initWithColorIcon>(),
      method<&Face::awesomeButtonWithOnlyIcon_type_style, onlyIconOfType>(),
      method<&Face::awesomeButtonWithOnlyIcon_color_style, onlyIconOfColor>(),
      method<&Face::initWithCoder, initWithCoder>(), method<&Face::setup, setup>(),
      // Colours and style.
      bridge::property<&Face::color, color, setColor>(),
      Button::property<&Face::buttonStyle, &ButtonState::style>(),
      bridge::property<&Face::buttonCornerRadius, cornerRadius, setCornerRadius>(),
      bridge::property<&Face::shouldShowDisabled, shouldShowDisabled, setShouldShowDisabled>(),
      method<&Face::setType, setType>(), method<&Face::setStyle, setStyle>(),
      method<&Face::setTextAttributesForStyle, setTextAttributes>(),
      method<&Face::colorForButtonType_style, colorForType>(),
      method<&Face::colorForV2StyleButtonWithType, colorForV2>(),
      method<&Face::colorForV3StyleButtonWithType, colorForV3>(),
      method<&Face::cornerRadiusForStyle, cornerRadiusForStyle>(),
      method<bridge::setterOf<&UIControl::highlighted>, setFlag<bridge::setterOf<&UIControl::highlighted>>>(),
      method<bridge::setterOf<&UIControl::enabled>, setFlag<bridge::setterOf<&UIControl::enabled>>>(),
      method<&UIView::drawRect, drawButton>(),
      method<&Face::drawBButtonStyleV2InRect_withContext, drawRaised>(),
      method<&Face::drawBButtonStyleV3InRect_withContext, drawFlat>(),
      // Titles.
      method<&Face::addAwesomeIcon_beforeTitle, addIcon>(),
      method<&Face::stringByTrimingWhiteSpaceFromString, trimmed>(), method<&Face::isStringEmpty, isEmpty>());
}

}  // namespace tilo
