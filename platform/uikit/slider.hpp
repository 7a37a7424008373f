// UISlider.
#pragma once

#include "platform/uikit/color.hpp"
#include "platform/uikit/control.hpp"

struct UISlider : bridge::Face<"UISlider", UIControl> {
  MESSAGE Method<"value", float()> value;
  MESSAGE Method<"setValue:", void(float)> setValue;  // kept within the range
  MESSAGE Method<"setValue:animated:", void(float, BOOL)> setValue_animated;
  MESSAGE Method<"minimumValue", float()> minimumValue;
  MESSAGE Method<"setMinimumValue:", void(float)> setMinimumValue;
  MESSAGE Method<"maximumValue", float()> maximumValue;
  MESSAGE Method<"setMaximumValue:", void(float)> setMaximumValue;
  // Whether a drag tells of every change, or of the last one only.
  MESSAGE Method<"isContinuous", BOOL()> isContinuous;
  MESSAGE Method<"setContinuous:", void(BOOL)> setContinuous;
  MESSAGE Method<"minimumTrackTintColor", UIColor()> minimumTrackTintColor;
  MESSAGE Method<"setMinimumTrackTintColor:", void(UIColor)> setMinimumTrackTintColor;
  MESSAGE Method<"maximumTrackTintColor", UIColor()> maximumTrackTintColor;
  MESSAGE Method<"setMaximumTrackTintColor:", void(UIColor)> setMaximumTrackTintColor;
  MESSAGE Method<"trackRectForBounds:", CGRect(CGRect)> trackRectForBounds;
  MESSAGE Method<"thumbRectForBounds:trackRect:value:", CGRect(CGRect, CGRect, float)>
      thumbRectForBounds_trackRect_value;
};
