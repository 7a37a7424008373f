// UIResponder.
#pragma once

#include "platform/foundation/set.hpp"

struct UIEvent;
struct UIView;

struct UIResponder : bridge::Face<"UIResponder", NSObject> {
  MESSAGE Method<"nextResponder", UIResponder()> nextResponder;
  // The set holds UITouch objects.
  MESSAGE Method<"touchesBegan:withEvent:", void(NSSet, UIEvent)> touchesBegan_withEvent;
  MESSAGE Method<"touchesMoved:withEvent:", void(NSSet, UIEvent)> touchesMoved_withEvent;
  MESSAGE Method<"touchesEnded:withEvent:", void(NSSet, UIEvent)> touchesEnded_withEvent;
  MESSAGE Method<"touchesCancelled:withEvent:", void(NSSet, UIEvent)> touchesCancelled_withEvent;

  // The first responder gets what is typed, and says what rises from the screen's lower edge for it.
  MESSAGE Method<"isFirstResponder", BOOL()> isFirstResponder;
  MESSAGE Method<"canBecomeFirstResponder", BOOL()> canBecomeFirstResponder;
  MESSAGE Method<"becomeFirstResponder", BOOL()> becomeFirstResponder;
  MESSAGE Method<"canResignFirstResponder", BOOL()> canResignFirstResponder;
  MESSAGE Method<"resignFirstResponder", BOOL()> resignFirstResponder;
  MESSAGE Method<"inputView", UIView()> inputView;
  MESSAGE Method<"inputAccessoryView", UIView()> inputAccessoryView;
  MESSAGE Method<"paste:", void(bridge::Object)> paste;
};
