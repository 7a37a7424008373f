// UIView's gesture recognisers. They may come before the view has run its initialiser.
#include <algorithm>

#include "simulator/uikit/base/array.hpp"
#include "simulator/uikit/base/exception.hpp"
#include "simulator/uikit/gestures/gesture_arbiter.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/views/view_methods.hpp"

namespace sim::uikit::view {

NSArray gestureRecognizers(UIView self) { return makeArray(stateOf(self).gestureRecognizers); }

void addGestureRecognizer(UIView self, UIGestureRecognizer recognizer) {
  if (!recognizer) raise("NSInvalidArgumentException"_ns, "a nil gesture recognizer cannot be added");
  const auto own = retained(recognizer);
  UIView& view = stateOf(recognizer).view;
  if (view == self) return;
  if (view) view.removeGestureRecognizer(recognizer);
  stateOf(self).gestureRecognizers.push_back(own);
  stateOf(recognizer).view = self;
}

void removeGestureRecognizer(UIView self, UIGestureRecognizer recognizer) {
  if (!recognizer || !(stateOf(recognizer).view == self)) return;
  const auto own = retained(recognizer);
  abandonGesture(recognizer);
  std::erase(stateOf(self).gestureRecognizers, own);
  stateOf(recognizer).view = {};
}

BOOL gestureRecognizerShouldBegin(UIView, UIGestureRecognizer) { return YES; }

}  // namespace sim::uikit::view
