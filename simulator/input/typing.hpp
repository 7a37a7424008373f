// Writing into the text field that is being edited, as somebody with a keyboard does.
#pragma once

#include <string_view>

#include "platform/uikit/text_field.hpp"

namespace sim::input {

/**
 * Taps the field, unless it is being edited already; takes no time. `name` is what errors call it. Throws
 * UsageError when something is in the finger's way, or when the field does not let itself be edited.
 */
void edit(UITextField field, std::string_view name);

/** Presses the delete key until the field is empty. Throws UsageError when it does not become so. */
void deleteText(UITextField field);

/**
 * Presses a key for each character (UTF-8); keys that lead to other keys come in between. What the keyboard
 * has no key for comes as from a keyboard that is plugged in. Each takes 0.1 s. Throws UsageError when the
 * keyboard goes away or its keys are out of reach.
 */
void typeText(UITextField field, std::string_view text);

/**
 * Each character (UTF-8) as from a keyboard that is plugged in, into whatever field is being edited; each
 * takes 0.1 s. Throws UsageError when none is.
 */
void typeByKeyboard(std::string_view text);

/** One of its keys that type nothing; takes as long. */
enum class PluggedKey { remove, enter };
void press(PluggedKey key);

/** From the pasteboard, at once. */
void pasteText(UITextField field, std::string_view text);

}  // namespace sim::input
