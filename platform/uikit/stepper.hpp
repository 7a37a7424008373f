// UIStepper.
#pragma once

#include "platform/uikit/control.hpp"

// From 0 to 100, by 1, unless told otherwise.
struct UIStepper : bridge::Face<"UIStepper", UIControl> {
  MESSAGE Property<"value", double> value;  // kept within the range
  MESSAGE Property<"minimumValue", double> minimumValue;
  MESSAGE Property<"maximumValue", double> maximumValue;
};
