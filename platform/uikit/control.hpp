// UIControl.
#pragma once

#include "platform/uikit/touch.hpp"

// UIControlEvents
enum : NSUInteger {
  UIControlEventTouchDown = 1 << 0,
  UIControlEventTouchDownRepeat = 1 << 1,
  UIControlEventTouchDragInside = 1 << 2,
  UIControlEventTouchDragOutside = 1 << 3,
  UIControlEventTouchDragEnter = 1 << 4,
  UIControlEventTouchDragExit = 1 << 5,
  UIControlEventTouchUpInside = 1 << 6,
  UIControlEventTouchUpOutside = 1 << 7,
  UIControlEventTouchCancel = 1 << 8,
  UIControlEventValueChanged = 1 << 12,
  UIControlEventEditingDidBegin = 1 << 16,
  UIControlEventEditingChanged = 1 << 17,
  UIControlEventEditingDidEnd = 1 << 18,
  UIControlEventEditingDidEndOnExit = 1 << 19
};

// UIControlState
enum : NSUInteger {
  UIControlStateNormal = 0,
  UIControlStateHighlighted = 1,
  UIControlStateDisabled = 2,
  UIControlStateSelected = 4
};

struct UIControl : bridge::Face<"UIControl", UIView> {
  // The target is not retained; without one the action goes up the responder chain.
  MESSAGE Method<"addTarget:action:forControlEvents:", void(bridge::Object, SEL, NSUInteger)>
      addTarget_action_forControlEvents;
  MESSAGE Method<"removeTarget:action:forControlEvents:", void(bridge::Object, SEL, NSUInteger)>
      removeTarget_action_forControlEvents;
  MESSAGE Method<"sendActionsForControlEvents:", void(NSUInteger)> sendActionsForControlEvents;
  MESSAGE Method<"sendAction:to:forEvent:", void(SEL, bridge::Object, UIEvent)> sendAction_to_forEvent;
  MESSAGE Method<"state", NSUInteger()> state;
  MESSAGE Property<"enabled", BOOL, "isEnabled"> enabled;
  MESSAGE Property<"highlighted", BOOL, "isHighlighted"> highlighted;
  MESSAGE Property<"selected", BOOL, "isSelected"> selected;

  // While a finger is on it.
  MESSAGE Method<"isTracking", BOOL()> isTracking;
  MESSAGE Method<"isTouchInside", BOOL()> isTouchInside;
  MESSAGE Method<"beginTrackingWithTouch:withEvent:", BOOL(UITouch, UIEvent)>
      beginTrackingWithTouch_withEvent;
  MESSAGE Method<"continueTrackingWithTouch:withEvent:", BOOL(UITouch, UIEvent)>
      continueTrackingWithTouch_withEvent;
  MESSAGE Method<"endTrackingWithTouch:withEvent:", void(UITouch, UIEvent)> endTrackingWithTouch_withEvent;
  MESSAGE Method<"cancelTrackingWithEvent:", void(UIEvent)> cancelTrackingWithEvent;
};
