// UITouch.
#pragma once

#include "platform/uikit/window.hpp"

// UITouchPhase
enum : NSInteger {
  UITouchPhaseBegan = 0,
  UITouchPhaseMoved = 1,
  UITouchPhaseStationary = 2,
  UITouchPhaseEnded = 3,
  UITouchPhaseCancelled = 4
};

struct UITouch : bridge::Face<"UITouch", NSObject> {
  MESSAGE Method<"phase", NSInteger()> phase;
  MESSAGE Method<"timestamp", double()> timestamp;  // seconds
  MESSAGE Method<"tapCount", NSUInteger()> tapCount;
  MESSAGE Method<"view", UIView()> view;
  MESSAGE Method<"window", UIWindow()> window;
  MESSAGE Method<"gestureRecognizers", NSArray()> gestureRecognizers;
  // Points; no view stands for the window.
  MESSAGE Method<"locationInView:", CGPoint(UIView)> locationInView;
  MESSAGE Method<"previousLocationInView:", CGPoint(UIView)> previousLocationInView;
  // From system version 9.0 on. 1 is an average touch; 0 where the screen does not feel force.
  MESSAGE Method<"force", CGFloat()> force;
  MESSAGE Method<"maximumPossibleForce", CGFloat()> maximumPossibleForce;
};
