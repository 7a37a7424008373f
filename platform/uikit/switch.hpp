// UISwitch.
#pragma once

#include "platform/uikit/control.hpp"

struct UISwitch : bridge::Face<"UISwitch", UIControl> {
  MESSAGE Property<"on", BOOL, "isOn"> on;
  MESSAGE Method<"setOn:animated:", void(BOOL, BOOL)> setOn_animated;
};
