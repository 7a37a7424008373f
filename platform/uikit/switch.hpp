// UISwitch.
#pragma once

#include "platform/uikit/control.hpp"

struct UISwitch : bridge::Face<"UISwitch", UIControl> {
  MESSAGE Method<"isOn", BOOL()> isOn;
  MESSAGE Method<"setOn:", void(BOOL)> setOn;
  MESSAGE Method<"setOn:animated:", void(BOOL, BOOL)> setOn_animated;
};
