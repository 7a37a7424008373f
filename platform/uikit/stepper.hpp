// UIStepper.
#pragma once

#include "platform/uikit/control.hpp"

// From 0 to 100, by 1, unless told otherwise.
struct UIStepper : bridge::Face<"UIStepper", UIControl> {
  MESSAGE Method<"value", double()> value;
  MESSAGE Method<"setValue:", void(double)> setValue;  // kept within the range
  MESSAGE Method<"setMinimumValue:", void(double)> setMinimumValue;
  MESSAGE Method<"setMaximumValue:", void(double)> setMaximumValue;
};
