// The arbiter among gesture recognisers: who gets which touch, who may begin, who has to fail for it, and
// what follows. Every change of a recogniser's state goes through it.
#pragma once

#include <functional>
#include <vector>

#include "platform/uikit/gesture_recognizer.hpp"

namespace sim::uikit {

/**
 * Does `work`, in which recognisers may change their states, and then what follows: actions are sent, views
 * get the touches that nobody withholds any longer, recognisers that have come to an end start anew. Within
 * another one only the work is done.
 */
void inGestureCycle(const std::function<void()>& work);

/** Gives a touch that has just come down to the recognisers of its view and of the views above it. */
void attachRecognizers(UITouch touch);

/** Tells recognisers of touches that have changed, the deepest view's first. */
void deliverToRecognizers(const std::vector<UITouch>& changed);

/**
 * The recogniser wants to go to another state. It may have to wait, or fail instead. Raises
 * NSInternalInconsistencyException when there is no such way.
 */
void requestState(UIGestureRecognizer recognizer, NSInteger state);

/** Ends what the recogniser is about, because it was disabled or taken from its view. */
void abandonGesture(UIGestureRecognizer recognizer);

/** Whether views have to wait for the beginning, or the end, of a touch. */
bool isBeginningWithheld(UITouch touch);
bool isEndWithheld(UITouch touch);

}  // namespace sim::uikit
