// How large keyboards are.
#pragma once

namespace sim::uikit {

/** Points; the margin is part of the height, below the keys. */
struct KeyboardSize {
  double height, bottomMargin;
};

/** On the device and the way it is held now. */
KeyboardSize keyboardSize();
bool hasTabletKeyboard();

}  // namespace sim::uikit
