// What delegates, views and recognisers themselves have to say about a gesture.
#pragma once

#include "platform/uikit/gesture_recognizer.hpp"

namespace sim::uikit {

bool shouldReceive(UIGestureRecognizer recognizer, UITouch touch);
/** Asks the delegate, then the view that was touched, then the recogniser's own view. */
bool shouldBegin(UIGestureRecognizer recognizer);
/** Whether `recognizer` has to wait until `other` has failed. */
bool requiresFailure(UIGestureRecognizer recognizer, UIGestureRecognizer other);
/** Whether `other` cannot be recognised any more, or not yet, when `recognizer` has been. */
bool prevents(UIGestureRecognizer recognizer, UIGestureRecognizer other);

}  // namespace sim::uikit
