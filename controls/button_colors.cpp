// UIColor(BButton)'s methods, and which colour a kind of button has.
#include "controls/button_colors.hpp"

#include <algorithm>

#include "bridge/replace.hpp"
#include "controls/button.hpp"

namespace tilo {
namespace {

constexpr CGFloat leastLightLevel = 0.75;

// Red, green and blue: a grey's are all its level.
struct Levels {
  CGFloat red, green, blue;
};

Levels levelsOf(UIColor color) {
  CGColorRef parts = color.CGColor();
  const CGFloat* levels = CGColorGetComponents(parts);
  if (CGColorGetNumberOfComponents(parts) == 2) return {levels[0], levels[0], levels[0]};
  return {levels[0], levels[1], levels[2]};
}

CGFloat alphaOf(UIColor color) {
  CGColorRef parts = color.CGColor();
  return CGColorGetComponents(parts)[CGColorGetNumberOfComponents(parts) - 1];
}

template <float Red, float Green, float Blue>
UIColor ofRed(Class) {
  return UIColor::colorWithRed_green_blue_alpha(Red, Green, Blue, 1);
}

// The hue in degrees.
template <int Hue, float Saturation, float Brightness>
UIColor ofHue(Class) {
  return UIColor::colorWithHue_saturation_brightness_alpha(Hue / 360.0f, Saturation, Brightness, 1);
}

UIColor clear(Class) { return UIColor::clearColor(); }

BOOL isLight(ButtonColor self) {
  CGColorRef parts = self.CGColor();
  const CGFloat* levels = CGColorGetComponents(parts);
  if (CGColorGetNumberOfComponents(parts) == 2) return levels[0] >= leastLightLevel;
  return (levels[0] + levels[1] + levels[2]) / 3 >= leastLightLevel;
}

UIColor lightened(ButtonColor self, CGFloat value) {
  const Levels levels = levelsOf(self);
  auto raised = [value](CGFloat level) { return std::min<CGFloat>(level + value, 1); };
  return UIColor::colorWithRed_green_blue_alpha(raised(levels.red), raised(levels.green), raised(levels.blue),
                                                alphaOf(self));
}

UIColor darkened(ButtonColor self, CGFloat value) {
  const Levels levels = levelsOf(self);
  auto lowered = [value](CGFloat level) { return std::max<CGFloat>(level - value, 0); };
  return UIColor::colorWithRed_green_blue_alpha(lowered(levels.red), lowered(levels.green),
                                                lowered(levels.blue), alphaOf(self));
}

UIColor desaturated(ButtonColor self, CGFloat part) {
  CGFloat hue{}, saturation{}, brightness{}, alpha{};
  self.getHue_saturation_brightness_alpha(&hue, &saturation, &brightness, &alpha);
  return UIColor::colorWithHue_saturation_brightness_alpha(hue, saturation * part, brightness, alpha);
}

// Of the types that have one colour for both looks; of all others the default.
UIColor sameInEither(NSUInteger type, UIColor defaultColor) {
  switch (type) {
    case BButtonTypeTwitter:
      return ButtonColor::bb_twitterColor();
    case BButtonTypeFacebook:
      return ButtonColor::bb_facebookColor();
    case BButtonTypePurple:
      return ButtonColor::bb_purpleBButtonColor();
    case BButtonTypeGray:
      return ButtonColor::bb_grayBButtonColor();
    case BButtonTypeClear:
      return ButtonColor::bb_clearBButtonColor();
    default:
      return defaultColor;
  }
}

template <auto Member, auto Function>
bridge::Row category() {
  return bridge::add<UIColor, Member, Function>(bridge::Descriptor<Member>::types());
}

}  // namespace

UIColor raisedColor(NSUInteger type) {
  switch (type) {
    case BButtonTypePrimary:
      return ButtonColor::bb_primaryColorV2();
    case BButtonTypeInfo:
      return ButtonColor::bb_infoColorV2();
    case BButtonTypeSuccess:
      return ButtonColor::bb_successColorV2();
    case BButtonTypeWarning:
      return ButtonColor::bb_warningColorV2();
    case BButtonTypeDanger:
      return ButtonColor::bb_dangerColorV2();
    case BButtonTypeInverse:
      return ButtonColor::bb_inverseColorV2();
    default:
      return sameInEither(type, ButtonColor::bb_defaultColorV2());
  }
}

UIColor flatColor(NSUInteger type) {
  switch (type) {
    case BButtonTypePrimary:
      return ButtonColor::bb_primaryColorV3();
    case BButtonTypeInfo:
      return ButtonColor::bb_infoColorV3();
    case BButtonTypeSuccess:
      return ButtonColor::bb_successColorV3();
    case BButtonTypeWarning:
      return ButtonColor::bb_warningColorV3();
    case BButtonTypeDanger:
      return ButtonColor::bb_dangerColorV3();
    case BButtonTypeInverse:
      return ButtonColor::bb_inverseColorV3();
    default:
      return sameInEither(type, ButtonColor::bb_defaultColorV3());
  }
}

void addButtonColors() {
  using Face = ButtonColor;
  const bridge::Row rows[] = {
      category<&Face::bb_defaultColorV2, ofRed<0.85f, 0.85f, 0.85f>>(),
      category<&Face::bb_defaultColorV3, ofRed<1.0f, 1.0f, 1.0f>>(),
      category<&Face::bb_primaryColorV2, ofRed<0.0f, 0.33f, 0.80f>>(),
      category<&Face::bb_primaryColorV3, ofHue<208, 0.72f, 0.69f>>(),
      category<&Face::bb_infoColorV2, ofRed<0.18f, 0.59f, 0.71f>>(),
      category<&Face::bb_infoColorV3, ofHue<194, 0.59f, 0.87f>>(),
      category<&Face::bb_successColorV2, ofRed<0.32f, 0.64f, 0.32f>>(),
      category<&Face::bb_successColorV3, ofHue<120, 0.50f, 0.72f>>(),
      category<&Face::bb_warningColorV2, ofRed<0.97f, 0.58f, 0.02f>>(),
      category<&Face::bb_warningColorV3, ofHue<35, 0.68f, 0.94f>>(),
      category<&Face::bb_dangerColorV2, ofRed<0.74f, 0.21f, 0.18f>>(),
      category<&Face::bb_dangerColorV3, ofHue<2, 0.64f, 0.85f>>(),
      category<&Face::bb_inverseColorV2, ofRed<0.13f, 0.13f, 0.13f>>(),
      category<&Face::bb_inverseColorV3, ofRed<0.75f, 0.75f, 0.75f>>(),
      category<&Face::bb_twitterColor, ofRed<0.25f, 0.60f, 1.0f>>(),
      category<&Face::bb_facebookColor, ofRed<0.23f, 0.35f, 0.60f>>(),
      category<&Face::bb_purpleBButtonColor, ofRed<0.45f, 0.30f, 0.75f>>(),
      category<&Face::bb_grayBButtonColor, ofRed<0.60f, 0.60f, 0.60f>>(),
      category<&Face::bb_clearBButtonColor, clear>(),
      category<&Face::bb_isLightColor, isLight>(),
      category<&Face::bb_lightenColorWithValue, lightened>(),
      category<&Face::bb_darkenColorWithValue, darkened>(),
      category<&Face::bb_desaturatedColorToPercentSaturation, desaturated>(),
  };
  for (const bridge::Row& row : rows) bridge::install(row);
}

}  // namespace tilo
