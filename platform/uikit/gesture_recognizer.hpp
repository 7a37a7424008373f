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
  MESSAGE Method<"delegate", bridge::Object()> delegate;
  MESSAGE Method<"setDelegate:", void(bridge::Object)> setDelegate;
  MESSAGE Method<"isEnabled", BOOL()> isEnabled;
  MESSAGE Method<"setEnabled:", void(BOOL)> setEnabled;
  MESSAGE Method<"state", NSInteger()> state;
  MESSAGE Method<"view", UIView()> view;
  MESSAGE Method<"cancelsTouchesInView", BOOL()> cancelsTouchesInView;
  MESSAGE Method<"setCancelsTouchesInView:", void(BOOL)> setCancelsTouchesInView;
  MESSAGE Method<"delaysTouchesBegan", BOOL()> delaysTouchesBegan;
  MESSAGE Method<"setDelaysTouchesBegan:", void(BOOL)> setDelaysTouchesBegan;
  MESSAGE Method<"delaysTouchesEnded", BOOL()> delaysTouchesEnded;
  MESSAGE Method<"setDelaysTouchesEnded:", void(BOOL)> setDelaysTouchesEnded;
  MESSAGE Method<"requireGestureRecognizerToFail:", void(UIGestureRecognizer)> requireGestureRecognizerToFail;
  MESSAGE Method<"locationInView:", CGPoint(UIView)> locationInView;
  MESSAGE Method<"numberOfTouches", NSUInteger()> numberOfTouches;
  MESSAGE Method<"locationOfTouch:inView:", CGPoint(NSUInteger, UIView)> locationOfTouch_inView;

  // For subclasses.
  MESSAGE Method<"setState:", void(NSInteger)> setState;
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
  MESSAGE Method<"numberOfTapsRequired", NSUInteger()> numberOfTapsRequired;
  MESSAGE Method<"setNumberOfTapsRequired:", void(NSUInteger)> setNumberOfTapsRequired;
  MESSAGE Method<"numberOfTouchesRequired", NSUInteger()> numberOfTouchesRequired;
  MESSAGE Method<"setNumberOfTouchesRequired:", void(NSUInteger)> setNumberOfTouchesRequired;
};

struct UISwipeGestureRecognizer : bridge::Face<"UISwipeGestureRecognizer", UIGestureRecognizer> {
  MESSAGE Method<"direction", NSUInteger()> direction;
  MESSAGE Method<"setDirection:", void(NSUInteger)> setDirection;
  MESSAGE Method<"numberOfTouchesRequired", NSUInteger()> numberOfTouchesRequired;
  MESSAGE Method<"setNumberOfTouchesRequired:", void(NSUInteger)> setNumberOfTouchesRequired;
};

struct UIPanGestureRecognizer : bridge::Face<"UIPanGestureRecognizer", UIGestureRecognizer> {
  MESSAGE Method<"minimumNumberOfTouches", NSUInteger()> minimumNumberOfTouches;
  MESSAGE Method<"setMinimumNumberOfTouches:", void(NSUInteger)> setMinimumNumberOfTouches;
  MESSAGE Method<"maximumNumberOfTouches", NSUInteger()> maximumNumberOfTouches;
  MESSAGE Method<"setMaximumNumberOfTouches:", void(NSUInteger)> setMaximumNumberOfTouches;
  MESSAGE Method<"translationInView:", CGPoint(UIView)> translationInView;
  MESSAGE Method<"setTranslation:inView:", void(CGPoint, UIView)> setTranslation_inView;
  MESSAGE Method<"velocityInView:", CGPoint(UIView)> velocityInView;  // points per second
};

struct UILongPressGestureRecognizer : bridge::Face<"UILongPressGestureRecognizer", UIGestureRecognizer> {
  MESSAGE Method<"minimumPressDuration", double()> minimumPressDuration;  // seconds
  MESSAGE Method<"setMinimumPressDuration:", void(double)> setMinimumPressDuration;
  MESSAGE Method<"allowableMovement", CGFloat()> allowableMovement;
  MESSAGE Method<"setAllowableMovement:", void(CGFloat)> setAllowableMovement;
  MESSAGE Method<"numberOfTouchesRequired", NSUInteger()> numberOfTouchesRequired;
  MESSAGE Method<"setNumberOfTouchesRequired:", void(NSUInteger)> setNumberOfTouchesRequired;
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
