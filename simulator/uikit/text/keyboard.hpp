// The keyboard: it rises for a first responder that takes text, with what that one wants above it.
#pragma once

#include <string>

#include "platform/uikit/text_field.hpp"
#include "simulator/uikit/text/keyboard_layout.hpp"

namespace sim::uikit {

/** What the keyboard and the view above it cover once they have risen, in points of the screen; nothing while
 * they are down. */
CGRect keyboardFrame();

/** A key, and whether it types what was asked for or only leads to another page of keys. */
struct NextKey {
  UIControl key;
  bool types;
};

/** What to tap for a character; no key where the keyboard is down or lacks it. Borrowed. */
NextKey nextKeyFor(const std::string& character);
/** A key of that kind; nothing where none is shown. Borrowed. */
UIControl keyOfKind(KeyKind kind);

/** The text of a field is another one. */
void keyboardHears(UITextField field);

}  // namespace sim::uikit
