// One key of the keyboard.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/control.hpp"
#include "simulator/uikit/text/keyboard_layout.hpp"

namespace sim::uikit {

/** `pressed` is called when a finger lifts from it. `prominent`: in the system's blue. */
bridge::Strong<UIControl> makeKey(const Key& key, bool dark, bool prominent, void (*pressed)(const Key& key));

const Key& keyOf(UIControl key);

void defineKeyboardKey();

}  // namespace sim::uikit
