// UIGestureRecognizer, its kinds and the questions that its delegate may answer.
#pragma once

#include "platform/uikit/touch.hpp"

// UIGestureRecognizerState
enum : NSInteger {
  UIGestureRecognizerStatePossible = 0,
  UIGestureRecognizerStateBegan = 1,
  UIGestureRecognizerStateChanged = 2,
  UIGestureRecognizerStateEnded = 3,
  UIGestureRecognizerStateRecognized = 3,
  UIGestureRecognizerStateCancelled = 4,
  UIGestureRecognizerStateFailed = 5
};

// UISwipeGestureRecognizerDirection
enum : NSUInteger {
  UISwipeGestureRecognizerDirectionRight = 1,
  UISwipeGestureRecognizerDirectionLeft = 2,
  UISwipeGestureRecognizerDirectionUp = 4,
  UISwipeGestureRecognizerDirectionDown = 8
};

// Lengths in points; no view stands for the window.
struct UIGestureRecognizer : bridge::Face<"UIGestureRecognizer", NSObject> {
  MESSAGE Method<"initWithTarget:action:", UIGestureRecognizer(bridge::Object, SEL)> initWithTarget_action;
  MESSAGE Method<"addTarget:action:", void(bridge::Object, SEL)> addTarget_action;
  MESSAGE Method<"removeTarget:action:", void(bridge::Object, SEL)> removeTarget_action;
  MESSAGE Property<"delegate", bridge::Object> delegate;
  MESSAGE Property<"enabled", BOOL, "isEnabled"> enabled;
  MESSAGE Property<"state", NSInteger> state;
  MESSAGE Method<"view", UIView()> view;
  MESSAGE Property<"cancelsTouchesInView", BOOL> cancelsTouchesInView;
  MESSAGE Property<"delaysTouchesBegan", BOOL> delaysTouchesBegan;
  MESSAGE Property<"delaysTouchesEnded", BOOL> delaysTouchesEnded;
  MESSAGE Method<"requireGestureRecognizerToFail:", void(UIGestureRecognizer)> requireGestureRecognizerToFail;
  MESSAGE Method<"locationInView:", CGPoint(UIView)> locationInView;
  MESSAGE Method<"numberOfTouches", NSUInteger()> numberOfTouches;
  MESSAGE Method<"locationOfTouch:inView:", CGPoint(NSUInteger, UIView)> locationOfTouch_inView;

  // For subclasses.
  MESSAGE Method<"reset", void()> reset;
  MESSAGE Method<"canPreventGestureRecognizer:", BOOL(UIGestureRecognizer)> canPreventGestureRecognizer;
  MESSAGE Method<"canBePreventedByGestureRecognizer:", BOOL(UIGestureRecognizer)>
      canBePreventedByGestureRecognizer;
  MESSAGE Method<"touchesBegan:withEvent:", void(NSSet, UIEvent)> touchesBegan_withEvent;
  MESSAGE Method<"touchesMoved:withEvent:", void(NSSet, UIEvent)> touchesMoved_withEvent;
  MESSAGE Method<"touchesEnded:withEvent:", void(NSSet, UIEvent)> touchesEnded_withEvent;
  MESSAGE Method<"touchesCancelled:withEvent:", void(NSSet, UIEvent)> touchesCancelled_withEvent;
};

struct UITapGestureRecognizer : bridge::Face<"UITapGestureRecognizer", UIGestureRecognizer> {
  MESSAGE Property<"numberOfTapsRequired", NSUInteger> numberOfTapsRequired;
  MESSAGE Property<"numberOfTouchesRequired", NSUInteger> numberOfTouchesRequired;
};

struct UISwipeGestureRecognizer : bridge::Face<"UISwipeGestureRecognizer", UIGestureRecognizer> {
  MESSAGE Property<"direction", NSUInteger> direction;
  MESSAGE Property<"numberOfTouchesRequired", NSUInteger> numberOfTouchesRequired;
};

struct UIPanGestureRecognizer : bridge::Face<"UIPanGestureRecognizer", UIGestureRecognizer> {
  MESSAGE Property<"minimumNumberOfTouches", NSUInteger> minimumNumberOfTouches;
  MESSAGE Property<"maximumNumberOfTouches", NSUInteger> maximumNumberOfTouches;
  MESSAGE Method<"translationInView:", CGPoint(UIView)> translationInView;
  MESSAGE Method<"setTranslation:inView:", void(CGPoint, UIView)> setTranslation_inView;
  MESSAGE Method<"velocityInView:", CGPoint(UIView)> velocityInView;  // points per second
};

struct UILongPressGestureRecognizer : bridge::Face<"UILongPressGestureRecognizer", UIGestureRecognizer> {
  MESSAGE Property<"minimumPressDuration", double> minimumPressDuration;  // seconds
  MESSAGE Property<"allowableMovement", CGFloat> allowableMovement;
  MESSAGE Property<"numberOfTouchesRequired", NSUInteger> numberOfTouchesRequired;
};

// What a delegate may implement; it is asked only what it responds to.
struct UIGestureRecognizerDelegate : bridge::Protocol<"UIGestureRecognizerDelegate"> {
  MESSAGE Method<"gestureRecognizer:shouldReceiveTouch:", BOOL(UIGestureRecognizer, UITouch)>
      gestureRecognizer_shouldReceiveTouch;
  MESSAGE Method<"gestureRecognizerShouldBegin:", BOOL(UIGestureRecognizer)> gestureRecognizerShouldBegin;
  MESSAGE Method<"gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:",
                 BOOL(UIGestureRecognizer, UIGestureRecognizer)>
      gestureRecognizer_shouldRecognizeSimultaneouslyWithGestureRecognizer;
  MESSAGE Method<"gestureRecognizer:shouldRequireFailureOfGestureRecognizer:",
                 BOOL(UIGestureRecognizer, UIGestureRecognizer)>
      gestureRecognizer_shouldRequireFailureOfGestureRecognizer;
  MESSAGE Method<"gestureRecognizer:shouldBeRequiredToFailByGestureRecognizer:",
                 BOOL(UIGestureRecognizer, UIGestureRecognizer)>
      gestureRecognizer_shouldBeRequiredToFailByGestureRecognizer;
};
