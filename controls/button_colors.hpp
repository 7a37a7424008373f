// UIColor(BButton): the palette of the buttons, and arithmetic on colours.
#pragma once

#include "platform/uikit/color.hpp"

namespace tilo {

struct ButtonColor : bridge::Face<"UIColor", UIColor> {
  static constexpr bridge::ClassMethod<"UIColor", "bb_defaultColorV2", UIColor()> bb_defaultColorV2{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_defaultColorV3", UIColor()> bb_defaultColorV3{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_primaryColorV2", UIColor()> bb_primaryColorV2{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_primaryColorV3", UIColor()> bb_primaryColorV3{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_infoColorV2", UIColor()> bb_infoColorV2{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_infoColorV3", UIColor()> bb_infoColorV3{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_successColorV2", UIColor()> bb_successColorV2{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_successColorV3", UIColor()> bb_successColorV3{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_warningColorV2", UIColor()> bb_warningColorV2{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_warningColorV3", UIColor()> bb_warningColorV3{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_dangerColorV2", UIColor()> bb_dangerColorV2{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_dangerColorV3", UIColor()> bb_dangerColorV3{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_inverseColorV2", UIColor()> bb_inverseColorV2{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_inverseColorV3", UIColor()> bb_inverseColorV3{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_twitterColor", UIColor()> bb_twitterColor{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_facebookColor", UIColor()> bb_facebookColor{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_purpleBButtonColor", UIColor()> bb_purpleBButtonColor{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_grayBButtonColor", UIColor()> bb_grayBButtonColor{};
  static constexpr bridge::ClassMethod<"UIColor", "bb_clearBButtonColor", UIColor()> bb_clearBButtonColor{};

  // Whether the mean of red, green and blue, or a grey's level, is at least 0.75.
  MESSAGE Method<"bb_isLightColor", BOOL()> bb_isLightColor;
  // Red, green and blue raised or lowered by so much, from 0 to 1.
  MESSAGE Method<"bb_lightenColorWithValue:", UIColor(CGFloat)> bb_lightenColorWithValue;
  MESSAGE Method<"bb_darkenColorWithValue:", UIColor(CGFloat)> bb_darkenColorWithValue;
  // The saturation times so much.
  MESSAGE Method<"bb_desaturatedColorToPercentSaturation:", UIColor(CGFloat)>
      bb_desaturatedColorToPercentSaturation;
};

// The palette's colour of a kind of button (BButtonType…) in the look of style 0 and in that of style 1.
UIColor raisedColor(NSUInteger type);
UIColor flatColor(NSUInteger type);

// Gives UIColor these methods.
void addButtonColors();

}  // namespace tilo
