// A text field's life as the first responder: what its delegate is asked and told, and what changes its text.
#include "bridge/define.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/pasteboard.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/text/text_field.hpp"
#include "simulator/uikit/views/first_responder.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using Delegate = UITextFieldDelegate;

template <auto Question>
bool knows(bridge::Object delegate) {
  return delegate &&
         bridge::as<NSObject>(delegate).respondsToSelector(bridge::Descriptor<Question>::selector());
}

// The delegate's answer, YES where it has none.
template <auto Question, class... A>
bool ask(UITextField self, A... arguments) {
  const bridge::Object delegate = stateOf(self).delegate.get();
  return !knows<Question>(delegate) || bridge::Descriptor<Question>::send(delegate.raw, self, arguments...);
}

template <auto Message>
void tell(UITextField self) {
  const bridge::Object delegate = stateOf(self).delegate.get();
  if (knows<Message>(delegate)) bridge::Descriptor<Message>::send(delegate.raw, self);
}

void post(UITextField self, NSString name) {
  NSNotificationCenter::defaultCenter().postNotificationName_object(name, self);
}

struct Cuttable : bridge::Face<"NSString", NSString> {
  MESSAGE Method<"substringToIndex:", NSString(NSUInteger)> substringToIndex;
};

void textChanged(UITextField self) {
  sendActions(self, UIControlEventEditingChanged, {});
  post(self, "UITextFieldTextDidChangeNotification"_ns);
}

// The last character: two units where it takes a pair of surrogates.
NSRange lastCharacter(NSString text) {
  const NSUInteger length = text.length();
  if (length == 0) return {0, 0};
  const bool isPair = length > 1 && (text.characterAtIndex(length - 1) & 0xfc00) == 0xdc00;
  const NSUInteger units = isPair ? 2 : 1;
  return {length - units, units};
}

bool mayChange(UITextField self, NSRange range, NSString replacement) {
  return ask<&Delegate::textField_shouldChangeCharactersInRange_replacementString>(self, range, replacement);
}

}  // namespace

void typeText(UITextField field, NSString text) {
  const Strong<UITextField> alive = retained(field);
  if (mayChange(field, {field.text().length(), 0}, text)) field.insertText(text);
}

void typeDelete(UITextField field) {
  const Strong<UITextField> alive = retained(field);
  if (field.hasText() && mayChange(field, lastCharacter(field.text()), ""_ns)) field.deleteBackward();
}

void typeReturn(UITextField field) {
  const Strong<UITextField> alive = retained(field);
  if (!ask<&Delegate::textFieldShouldReturn>(field)) return;
  sendActions(field, UIControlEventEditingDidEndOnExit, {});
  // An action for this event, even one that does nothing, makes the return key end editing.
  if (eventsOf(field) & UIControlEventEditingDidEndOnExit) field.resignFirstResponder();
}

void clearText(UITextField field) {
  const Strong<UITextField> alive = retained(field);
  if (!ask<&Delegate::textFieldShouldClear>(field)) return;
  field.text.set(""_ns);
  textChanged(field);
}

namespace text_field {

BOOL becomeFirstResponder(UITextField self) {
  if (self.isFirstResponder()) return YES;
  const Strong<UITextField> alive = retained(self);
  if (!self.canBecomeFirstResponder() || !self.window()) return NO;
  if (!ask<&Delegate::textFieldShouldBeginEditing>(self)) return NO;
  if (!responder::becomeFirstResponder(self)) return NO;
  stateOf(self).editing = YES;
  textFieldChanged(self);
  tell<&Delegate::textFieldDidBeginEditing>(self);
  sendActions(self, UIControlEventEditingDidBegin, {});
  post(self, "UITextFieldTextDidBeginEditingNotification"_ns);
  return YES;
}

BOOL resignFirstResponder(UITextField self) {
  if (!self.isFirstResponder()) return YES;
  const Strong<UITextField> alive = retained(self);
  if (!ask<&Delegate::textFieldShouldEndEditing>(self) && !mustResign()) return NO;
  if (!responder::resignFirstResponder(self)) return NO;
  stateOf(self).editing = NO;
  textFieldChanged(self);
  tell<&Delegate::textFieldDidEndEditing>(self);
  sendActions(self, UIControlEventEditingDidEnd, {});
  post(self, "UITextFieldTextDidEndEditingNotification"_ns);
  return YES;
}

void insertText(UITextField self, NSString text) {
  self.text.set(self.text().stringByAppendingString(text));
  textChanged(self);
}

void deleteBackward(UITextField self) {
  const Strong<NSString> text = retained(self.text());
  if (text->length() == 0) return;
  self.text.set(bridge::as<Cuttable>(text.get()).substringToIndex(lastCharacter(text).location));
  textChanged(self);
}

// Pasting is typing all at once.
void paste(UITextField self, bridge::Object) {
  const NSString text = UIPasteboard::generalPasteboard().string();
  if (text) typeText(self, text);
}

}  // namespace text_field
}  // namespace sim::uikit
