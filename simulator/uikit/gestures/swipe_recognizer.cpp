// UISwipeGestureRecognizer.
#include <cmath>

#include "bridge/define.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch.hpp"

namespace sim::uikit {
namespace {

// UIKit's own figures are not published; these are those of a sibling of the same design.
constexpr double leastDistance = 50;   // points along the direction
constexpr double mostDeviation = 200;  // points across
constexpr double longestSwipe = 0.5;   // seconds

struct SwipeState {
  NSUInteger direction = UISwipeGestureRecognizerDirectionRight;  // several bits mean any of them
  NSUInteger touchesRequired = 1;

  bool complete = false;  // as many fingers as are required are down
  CGPoint start{};        // the middle of the fingers then, in the window
};

using SwipeClass = bridge::Implementation<UISwipeGestureRecognizer, SwipeState>;

struct Way {
  double along, across;
};

Way wayIn(NSUInteger direction, double x, double y) {
  switch (direction) {
    case UISwipeGestureRecognizerDirectionRight:
      return {x, std::abs(y)};
    case UISwipeGestureRecognizerDirectionLeft:
      return {-x, std::abs(y)};
    case UISwipeGestureRecognizerDirectionUp:
      return {-y, std::abs(x)};
    default:
      return {y, std::abs(x)};
  }
}

void touchesBegan(UISwipeGestureRecognizer self, NSSet touches, UIEvent) {
  SwipeState& state = SwipeClass::state(self);
  const NSUInteger down = downTouches(self).size();
  if (down > state.touchesRequired) return giveUp(self);
  if (down == touches.count()) startTimer(self, longestSwipe, [self] { giveUp(self); });
  state.complete = down == state.touchesRequired;
  state.start = centroid(self);
}

void touchesMoved(UISwipeGestureRecognizer self, NSSet, UIEvent) {
  const SwipeState& state = SwipeClass::state(self);
  if (!state.complete) return;
  const CGPoint now = centroid(self);
  bool onTheWay = false;
  for (NSUInteger direction = UISwipeGestureRecognizerDirectionRight;
       direction <= UISwipeGestureRecognizerDirectionDown; direction <<= 1) {
    if (!(state.direction & direction)) continue;
    const Way way = wayIn(direction, now.x - state.start.x, now.y - state.start.y);
    if (way.across > mostDeviation) continue;
    onTheWay = true;
    if (way.along < leastDistance || way.along <= way.across) continue;
    return self.state.set(UIGestureRecognizerStateRecognized);
  }
  if (!onTheWay) giveUp(self);
}

void touchesStop(UISwipeGestureRecognizer self, NSSet, UIEvent) { giveUp(self); }

// Where the swipe began.
CGPoint locationInView(UISwipeGestureRecognizer self, UIView view) {
  return fromWindow(SwipeClass::state(self).start, view);
}

void reset(UISwipeGestureRecognizer self) { SwipeClass::state(self).complete = false; }

}  // namespace

void defineSwipeGestureRecognizer() {
  using bridge::method;
  using Face = UISwipeGestureRecognizer;
  SwipeClass::define<UIGestureRecognizer>(
      SwipeClass::property<&Face::direction, &SwipeState::direction>(),
      SwipeClass::property<&Face::numberOfTouchesRequired, &SwipeState::touchesRequired>(),
      method<&Face::touchesBegan_withEvent, touchesBegan>(),
      method<&Face::touchesMoved_withEvent, touchesMoved>(),
      method<&Face::touchesEnded_withEvent, touchesStop>(),
      method<&Face::touchesCancelled_withEvent, touchesStop>(),
      method<&Face::locationInView, locationInView>(), method<&Face::reset, reset>());
}

}  // namespace sim::uikit
