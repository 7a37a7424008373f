// The states of a gesture recogniser and the ways between them.
#pragma once

#include <span>

#include "platform/uikit/gesture_recognizer.hpp"

namespace sim::uikit {

/** One way from a state to another, and whether the recogniser's targets hear of it. */
struct GestureTransition {
  NSInteger from, to;  // UIGestureRecognizerState
  bool sendsAction;
};

/** Every way that a recogniser may take by itself; the way back to the possible state is the arbiter's. */
std::span<const GestureTransition> gestureTransitions();

/** The row of that way; null when there is none. */
const GestureTransition* findTransition(NSInteger from, NSInteger to);

/** Whether a gesture is under way or has just been recognised. */
bool hasRecognized(NSInteger state);
/** Whether the recogniser has come to an end, for this gesture. */
bool isTerminal(NSInteger state);

}  // namespace sim::uikit
