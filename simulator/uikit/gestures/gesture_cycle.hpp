// What follows from changes of recognisers: their actions, and their way back to the start.
#pragma once

#include "platform/uikit/gesture_recognizer.hpp"

namespace sim::uikit {

/** The recogniser has touches now; it is looked after until it has none. */
void followRecognizer(UIGestureRecognizer recognizer);

/** Its targets are to hear of the state that it is in, when everybody has heard of the touches. */
void queueAction(UIGestureRecognizer recognizer);
/** Sends what is queued of this recogniser at once. */
void flushActions(UIGestureRecognizer recognizer);

}  // namespace sim::uikit
