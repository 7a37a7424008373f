// UITapGestureRecognizer.
#include <cmath>
#include <unordered_map>

#include "bridge/define.hpp"
#include "simulator/uikit/gestures/event.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch.hpp"

namespace sim::uikit {
namespace {

constexpr double allowableMovement = 45;  // points
constexpr double longestTap = 0.75;       // seconds that fingers may stay down
constexpr double longestGap = 0.35;       // seconds between one tap and the next

struct TapState {
  NSUInteger tapsRequired = 1;
  NSUInteger touchesRequired = 1;

  NSUInteger taps = 0;
  bool complete = false;                   // as many fingers as are required were down together
  std::unordered_map<id, CGPoint> starts;  // of the touches, in the window
  CGPoint first{};                         // where the first tap began
};

using TapClass = bridge::Implementation<UITapGestureRecognizer, TapState>;

bool isFar(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y) > allowableMovement; }

void touchesBegan(UITapGestureRecognizer self, NSSet touches, UIEvent) {
  TapState& state = TapClass::state(self);
  const NSUInteger down = downTouches(self).size();
  for (const UITouch touch : touchesOf(touches)) {
    const CGPoint location = stateOf(touch).location;
    if (state.taps == 0 && state.starts.empty()) state.first = location;
    state.starts[touch.raw] = location;
    // Further taps have to hit the same place.
    if (state.taps > 0 && state.touchesRequired == 1 && isFar(location, state.first)) return giveUp(self);
  }
  if (down > state.touchesRequired) return giveUp(self);
  if (down == state.touchesRequired) state.complete = true;
  if (down == touches.count()) startTimer(self, longestTap, [self] { giveUp(self); });
}

void touchesMoved(UITapGestureRecognizer self, NSSet touches, UIEvent) {
  TapState& state = TapClass::state(self);
  for (const UITouch touch : touchesOf(touches))
    if (isFar(stateOf(touch).location, state.starts[touch.raw])) return giveUp(self);
}

void touchesEnded(UITapGestureRecognizer self, NSSet, UIEvent) {
  TapState& state = TapClass::state(self);
  if (!state.complete) return giveUp(self);
  if (!downTouches(self).empty()) return;
  state.complete = false;
  if (++state.taps < state.tapsRequired) return startTimer(self, longestGap, [self] { giveUp(self); });
  stopTimer(self);
  self.state.set(UIGestureRecognizerStateRecognized);
}

void touchesCancelled(UITapGestureRecognizer self, NSSet, UIEvent) { giveUp(self); }

void reset(UITapGestureRecognizer self) {
  TapState& state = TapClass::state(self);
  state.taps = 0;
  state.complete = false;
  state.starts.clear();
}

// One that waits for more taps goes on after this one has been recognised.
BOOL canPrevent(UITapGestureRecognizer self, UIGestureRecognizer other) {
  if (!bridge::isKindOf<UITapGestureRecognizer>(other)) return YES;
  return bridge::as<UITapGestureRecognizer>(other).numberOfTapsRequired() <=
         TapClass::state(self).tapsRequired;
}

}  // namespace

void defineTapGestureRecognizer() {
  using bridge::method;
  using Face = UITapGestureRecognizer;
  TapClass::define<UIGestureRecognizer>(
      TapClass::property<&Face::numberOfTapsRequired, &TapState::tapsRequired>(),
      TapClass::property<&Face::numberOfTouchesRequired, &TapState::touchesRequired>(),
      method<&Face::touchesBegan_withEvent, touchesBegan>(),
      method<&Face::touchesMoved_withEvent, touchesMoved>(),
      method<&Face::touchesEnded_withEvent, touchesEnded>(),
      method<&Face::touchesCancelled_withEvent, touchesCancelled>(), method<&Face::reset, reset>(),
      method<&Face::canPreventGestureRecognizer, canPrevent>());
}

}  // namespace sim::uikit
