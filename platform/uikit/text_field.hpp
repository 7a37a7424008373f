// UITextField, and what its delegate may answer.
#pragma once

#include "platform/foundation/range.hpp"
#include "platform/uikit/control.hpp"
#include "platform/uikit/label.hpp"

// UIKeyboardType
enum : NSInteger {
  UIKeyboardTypeDefault = 0,
  UIKeyboardTypeASCIICapable = 1,
  UIKeyboardTypeNumbersAndPunctuation = 2
};

// UIReturnKeyType
enum : NSInteger { UIReturnKeyDefault = 0, UIReturnKeyDone = 9 };

// UIKeyboardAppearance
enum : NSInteger {
  UIKeyboardAppearanceDefault = 0,
  UIKeyboardAppearanceDark = 1,
  UIKeyboardAppearanceLight = 2
};

// UITextFieldViewMode
enum : NSInteger {
  UITextFieldViewModeNever = 0,
  UITextFieldViewModeWhileEditing,
  UITextFieldViewModeUnlessEditing,
  UITextFieldViewModeAlways
};

// UITextBorderStyle
enum : NSInteger {
  UITextBorderStyleNone = 0,
  UITextBorderStyleLine,
  UITextBorderStyleBezel,
  UITextBorderStyleRoundedRect
};

struct UITextField : bridge::Face<"UITextField", UIControl> {
  MESSAGE Property<"text", NSString> text;  // never nil
  MESSAGE Property<"placeholder", NSString> placeholder;
  MESSAGE Property<"font", UIFont> font;
  MESSAGE Property<"textColor", UIColor> textColor;
  MESSAGE Property<"textAlignment", NSInteger> textAlignment;
  MESSAGE Property<"borderStyle", NSInteger> borderStyle;
  MESSAGE Property<"clearButtonMode", NSInteger> clearButtonMode;
  MESSAGE Property<"delegate", bridge::Object> delegate;  // not retained
  MESSAGE Method<"isEditing", BOOL()> isEditing;
  MESSAGE Method<"setInputView:", void(UIView)> setInputView;
  MESSAGE Method<"setInputAccessoryView:", void(UIView)> setInputAccessoryView;

  // The keyboard.
  MESSAGE Property<"keyboardType", NSInteger> keyboardType;
  MESSAGE Property<"keyboardAppearance", NSInteger> keyboardAppearance;
  MESSAGE Property<"returnKeyType", NSInteger> returnKeyType;
  MESSAGE Property<"enablesReturnKeyAutomatically", BOOL> enablesReturnKeyAutomatically;
  MESSAGE Method<"hasText", BOOL()> hasText;
  MESSAGE Method<"insertText:", void(NSString)> insertText;
  MESSAGE Method<"deleteBackward", void()> deleteBackward;
};

// It is asked only what it responds to.
struct UITextFieldDelegate : bridge::Protocol<"UITextFieldDelegate"> {
  MESSAGE Method<"textFieldShouldBeginEditing:", BOOL(UITextField)> textFieldShouldBeginEditing;
  MESSAGE Method<"textFieldDidBeginEditing:", void(UITextField)> textFieldDidBeginEditing;
  MESSAGE Method<"textFieldShouldEndEditing:", BOOL(UITextField)> textFieldShouldEndEditing;
  MESSAGE Method<"textFieldDidEndEditing:", void(UITextField)> textFieldDidEndEditing;
  MESSAGE Method<"textField:shouldChangeCharactersInRange:replacementString:",
                 BOOL(UITextField, NSRange, NSString)>
      textField_shouldChangeCharactersInRange_replacementString;
  MESSAGE Method<"textFieldShouldClear:", BOOL(UITextField)> textFieldShouldClear;
  MESSAGE Method<"textFieldShouldReturn:", BOOL(UITextField)> textFieldShouldReturn;
};
