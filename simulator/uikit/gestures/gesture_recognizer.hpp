// UIGestureRecognizer.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "bridge/strong.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "simulator/runtime/weak.hpp"

namespace sim::uikit {

/** What every kind of recogniser has. */
struct RecognizerState {
  struct Target {
    Weak object;
    SEL action;
  };

  NSInteger state = UIGestureRecognizerStatePossible;
  BOOL enabled = YES;
  BOOL cancelsTouchesInView = YES;
  BOOL delaysTouchesBegan = NO;
  BOOL delaysTouchesEnded = YES;
  std::vector<Target> targets;
  Weak delegate;
  UIView view;  // not retained: a view takes itself away when it dies
  std::vector<Weak> requiredToFail;

  // Of the gesture under way.
  std::vector<bridge::Strong<UITouch>> touches;
  std::optional<NSInteger> held;  // the state to go to once those that have to fail have failed
  bool mayBegin = false;          // everybody who may forbid it has been asked
  bool abandoned = false;         // its touches are no longer its own
  CGPoint lastLocation{};         // of the window

  RecognizerState() = default;
  ~RecognizerState();
  RecognizerState(const RecognizerState&) = delete;
  RecognizerState& operator=(const RecognizerState&) = delete;
};

RecognizerState& stateOf(UIGestureRecognizer recognizer);

/** Its touches that are still down. Borrowed. */
std::vector<UITouch> downTouches(UIGestureRecognizer recognizer);
/** The middle of the fingers that are down, or of all when none is any more; points of the window. */
CGPoint centroid(UIGestureRecognizer recognizer);
/** From the window's coordinates into the view's; no view stands for the window. */
CGPoint fromWindow(CGPoint point, UIView view);
/** The same for a distance. */
CGPoint vectorFromWindow(CGPoint vector, UIView view);

/** Does `work` after so many seconds, unless the timer is stopped or started anew before. */
void startTimer(UIGestureRecognizer recognizer, double seconds, std::function<void()> work);
void stopTimer(UIGestureRecognizer recognizer);
/** To the state of failure, where that is still possible; a gesture under way is cancelled. */
void giveUp(UIGestureRecognizer recognizer);

}  // namespace sim::uikit
