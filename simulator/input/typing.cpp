// Writing into the text field that is being edited.
#include "simulator/input/typing.hpp"

#include <fmt/format.h>

#include "bridge/runtime.hpp"
#include "platform/uikit/pasteboard.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/text/keyboard.hpp"
#include "simulator/uikit/text/text_field.hpp"
#include "simulator/uikit/views/first_responder.hpp"

namespace sim::input {
namespace {

constexpr double keyDuration = 0.1;  // seconds from one key to the next

NSString string(std::string_view text) { return NSString::stringWithUTF8String(std::string(text).c_str()); }

CGPoint reach(UIView view, std::string_view name) {
  uikit::layoutPass();
  const CGPoint place = middleOnScreen(view);
  const std::string reason = obstacle(view, view, place);
  if (!reason.empty()) throw UsageError(fmt::format("{} {}", name, reason));
  return place;
}

void press(UIControl key, std::string_view name) {
  const bridge::Pool pool;
  const CGPoint place = reach(key, fmt::format("the key \"{}\"", name));
  tap(place);
  letPass(keyDuration - tapDuration);
}

void plugIn(UITextField field, std::string_view character) {
  const bridge::Pool pool;
  uikit::typeText(field, string(character));
  letPass(keyDuration);
}

void type(UITextField field, const std::string& character) {
  for (;;) {
    if (!field.isFirstResponder()) throw UsageError("the keyboard has gone");
    const uikit::NextKey next = uikit::nextKeyFor(character);
    if (!next.key) return plugIn(field, character);
    press(next.key, character);
    if (next.types) return;
  }
}

std::size_t lengthOfCharacter(char first) {
  const auto byte = static_cast<unsigned char>(first);
  return byte < 0xc0 ? 1 : byte < 0xe0 ? 2 : byte < 0xf0 ? 3 : 4;
}

// The first of them is taken off the text.
std::string nextCharacter(std::string_view& text) {
  const std::size_t length = std::min(lengthOfCharacter(text.front()), text.size());
  std::string character(text.substr(0, length));
  text.remove_prefix(length);
  return character;
}

UITextField editedField() {
  const UIResponder responder = uikit::firstResponder();
  if (!bridge::isKindOf<UITextField>(responder)) throw UsageError("no text field is being edited");
  return bridge::as<UITextField>(responder);
}

}  // namespace

void edit(UITextField field, std::string_view name) {
  if (!field.isFirstResponder()) tapAtOnce(reach(field, name));
  if (!field.isFirstResponder()) throw UsageError(fmt::format("{} does not let itself be edited", name));
}

void deleteText(UITextField field) {
  while (field.hasText()) {
    const NSUInteger before = field.text().length();
    const UIControl key = uikit::keyOfKind(uikit::KeyKind::remove);
    if (!key) throw UsageError("there is no delete key");
    press(key, "delete");
    if (field.text().length() >= before) throw UsageError("the text does not let itself be deleted");
  }
}

void typeText(UITextField field, std::string_view text) {
  const auto alive = retained(field);
  while (!text.empty()) type(field, nextCharacter(text));
}

void typeByKeyboard(std::string_view text) {
  while (!text.empty()) plugIn(editedField(), nextCharacter(text));
}

void press(PluggedKey key) {
  const bridge::Pool pool;
  const UITextField field = editedField();
  key == PluggedKey::remove ? uikit::typeDelete(field) : uikit::typeReturn(field);
  letPass(keyDuration);
}

void pasteText(UITextField field, std::string_view text) {
  const bridge::Pool pool;
  UIPasteboard::generalPasteboard().string.set(string(text));
  field.paste({});
  settle();
}

}  // namespace sim::input
