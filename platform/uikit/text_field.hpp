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
  MESSAGE Method<"text", NSString()> text;  // never nil
  MESSAGE Method<"setText:", void(NSString)> setText;
  MESSAGE Method<"placeholder", NSString()> placeholder;
  MESSAGE Method<"setPlaceholder:", void(NSString)> setPlaceholder;
  MESSAGE Method<"font", UIFont()> font;
  MESSAGE Method<"setFont:", void(UIFont)> setFont;
  MESSAGE Method<"textColor", UIColor()> textColor;
  MESSAGE Method<"setTextColor:", void(UIColor)> setTextColor;
  MESSAGE Method<"textAlignment", NSInteger()> textAlignment;
  MESSAGE Method<"setTextAlignment:", void(NSInteger)> setTextAlignment;
  MESSAGE Method<"borderStyle", NSInteger()> borderStyle;
  MESSAGE Method<"setBorderStyle:", void(NSInteger)> setBorderStyle;
  MESSAGE Method<"clearButtonMode", NSInteger()> clearButtonMode;
  MESSAGE Method<"setClearButtonMode:", void(NSInteger)> setClearButtonMode;
  MESSAGE Method<"delegate", bridge::Object()> delegate;  // not retained
  MESSAGE Method<"setDelegate:", void(bridge::Object)> setDelegate;
  MESSAGE Method<"isEditing", BOOL()> isEditing;
  MESSAGE Method<"setInputView:", void(UIView)> setInputView;
  MESSAGE Method<"setInputAccessoryView:", void(UIView)> setInputAccessoryView;

  // The keyboard.
  MESSAGE Method<"keyboardType", NSInteger()> keyboardType;
  MESSAGE Method<"setKeyboardType:", void(NSInteger)> setKeyboardType;
  MESSAGE Method<"keyboardAppearance", NSInteger()> keyboardAppearance;
  MESSAGE Method<"setKeyboardAppearance:", void(NSInteger)> setKeyboardAppearance;
  MESSAGE Method<"returnKeyType", NSInteger()> returnKeyType;
  MESSAGE Method<"setReturnKeyType:", void(NSInteger)> setReturnKeyType;
  MESSAGE Method<"enablesReturnKeyAutomatically", BOOL()> enablesReturnKeyAutomatically;
  MESSAGE Method<"setEnablesReturnKeyAutomatically:", void(BOOL)> setEnablesReturnKeyAutomatically;
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
