// UILongPressGestureRecognizer.
#include <cmath>

#include "bridge/define.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch.hpp"

namespace sim::uikit {
namespace {

struct LongPressState {
  double minimumDuration = 0.5;    // seconds
  CGFloat allowableMovement = 10;  // points, before it begins
  NSUInteger touchesRequired = 1;

  CGPoint start{};  // the middle of the fingers, in the window
};

using LongPressClass = bridge::Implementation<UILongPressGestureRecognizer, LongPressState>;

bool isPossible(UILongPressGestureRecognizer self) {
  return self.state() == UIGestureRecognizerStatePossible;
}

void touchesBegan(UILongPressGestureRecognizer self, NSSet, UIEvent) {
  LongPressState& state = LongPressClass::state(self);
  if (!isPossible(self)) return;
  const NSUInteger down = downTouches(self).size();
  if (down > state.touchesRequired) return giveUp(self);
  state.start = centroid(self);
  if (down == state.touchesRequired)
    startTimer(self, state.minimumDuration, [self] { self.state.set(UIGestureRecognizerStateBegan); });
}

void touchesMoved(UILongPressGestureRecognizer self, NSSet, UIEvent) {
  const LongPressState& state = LongPressClass::state(self);
  if (!isPossible(self)) return self.state.set(UIGestureRecognizerStateChanged);
  const CGPoint now = centroid(self);
  if (std::hypot(now.x - state.start.x, now.y - state.start.y) > state.allowableMovement) giveUp(self);
}

void touchesEnded(UILongPressGestureRecognizer self, NSSet, UIEvent) {
  isPossible(self) ? giveUp(self) : self.state.set(UIGestureRecognizerStateEnded);
}

void touchesCancelled(UILongPressGestureRecognizer self, NSSet, UIEvent) { giveUp(self); }

}  // namespace

void defineLongPressGestureRecognizer() {
  using bridge::method;
  using Face = UILongPressGestureRecognizer;
  LongPressClass::define<UIGestureRecognizer>(
      LongPressClass::property<&Face::minimumPressDuration, &LongPressState::minimumDuration>(),
      LongPressClass::property<&Face::allowableMovement, &LongPressState::allowableMovement>(),
      LongPressClass::property<&Face::numberOfTouchesRequired, &LongPressState::touchesRequired>(),
      method<&Face::touchesBegan_withEvent, touchesBegan>(),
      method<&Face::touchesMoved_withEvent, touchesMoved>(),
      method<&Face::touchesEnded_withEvent, touchesEnded>(),
      method<&Face::touchesCancelled_withEvent, touchesCancelled>());
}

}  // namespace sim::uikit
