// UITextField.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/text_field.hpp"
#include "simulator/runtime/weak.hpp"

namespace sim::uikit {

struct TextFieldState {
  bridge::Strong<NSString> text, placeholder;  // copies; the text may be nothing
  bridge::Strong<UIFont> font;
  bridge::Strong<UIColor> textColor;
  NSInteger textAlignment = NSTextAlignmentNatural;
  NSInteger borderStyle = UITextBorderStyleNone;
  NSInteger clearButtonMode = UITextFieldViewModeNever;
  Weak delegate;
  BOOL editing = NO;
  bridge::Strong<UIView> inputView, inputAccessoryView;
  NSInteger keyboardType = UIKeyboardTypeDefault;
  NSInteger keyboardAppearance = UIKeyboardAppearanceDefault;
  NSInteger returnKeyType = UIReturnKeyDefault;
  BOOL enablesReturnKeyAutomatically = NO;
  bridge::Strong<UIView> caret;
  bridge::Strong<UIControl> clearButton;
};

TextFieldState& stateOf(UITextField field);

/** What is shown is out of date. */
void textFieldChanged(UITextField field);

// What the keys of a keyboard do: the delegate is asked before the text changes. The caret stands at the
// text's end.

void typeText(UITextField field, NSString text);
void typeDelete(UITextField field);
void typeReturn(UITextField field);
/** Takes all text away, where the delegate agrees. */
void clearText(UITextField field);

// UITextField's methods about its text; text_field.cpp makes the class of them.
namespace text_field {

BOOL becomeFirstResponder(UITextField self);
BOOL resignFirstResponder(UITextField self);
void insertText(UITextField self, NSString text);
void deleteBackward(UITextField self);
void paste(UITextField self, bridge::Object sender);

}  // namespace text_field

}  // namespace sim::uikit
