// UISlider.
#pragma once

#include "platform/uikit/color.hpp"
#include "platform/uikit/control.hpp"

struct UISlider : bridge::Face<"UISlider", UIControl> {
  MESSAGE Property<"value", float> value;  // kept within the range
  MESSAGE Method<"setValue:animated:", void(float, BOOL)> setValue_animated;
  MESSAGE Property<"minimumValue", float> minimumValue;
  MESSAGE Property<"maximumValue", float> maximumValue;
  // Whether a drag tells of every change, or of the last one only.
  MESSAGE Property<"continuous", BOOL, "isContinuous"> continuous;
  MESSAGE Property<"minimumTrackTintColor", UIColor> minimumTrackTintColor;
  MESSAGE Property<"maximumTrackTintColor", UIColor> maximumTrackTintColor;
  MESSAGE Method<"trackRectForBounds:", CGRect(CGRect)> trackRectForBounds;
  MESSAGE Method<"thumbRectForBounds:trackRect:value:", CGRect(CGRect, CGRect, float)>
      thumbRectForBounds_trackRect_value;
};
