// UIPanGestureRecognizer.
#include <cmath>
#include <limits>

#include "bridge/define.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch.hpp"

namespace sim::uikit {
namespace {

constexpr double leastMovement = 10;    // points before a touch counts as a pan
constexpr double velocityMemory = 0.1;  // seconds over which the velocity is measured

struct Sample {
  double time;
  CGPoint location;
};

struct PanState {
  NSUInteger minimumTouches = 1;
  NSUInteger maximumTouches = std::numeric_limits<NSUInteger>::max();

  CGPoint start{};    // from where the translation counts; all in the window
  CGPoint current{};  // the middle of the fingers
  std::vector<Sample> samples;
};

using PanClass = bridge::Implementation<UIPanGestureRecognizer, PanState>;

bool isActive(UIPanGestureRecognizer self) {
  return self.state() == UIGestureRecognizerStateBegan || self.state() == UIGestureRecognizerStateChanged;
}

// With another finger more or less the middle jumps; what has been translated so far stays.
void countFingers(UIPanGestureRecognizer self) {
  PanState& state = PanClass::state(self);
  const CGPoint now = centroid(self);
  if (isActive(self)) {
    state.start.x += now.x - state.current.x;
    state.start.y += now.y - state.current.y;
  } else {
    state.start = now;
  }
  state.current = now;
  state.samples = {{clock::now(), now}};
}

void touchesBegan(UIPanGestureRecognizer self, NSSet, UIEvent) {
  if (!isActive(self) && downTouches(self).size() > PanClass::state(self).maximumTouches) return giveUp(self);
  countFingers(self);
}

void touchesMoved(UIPanGestureRecognizer self, NSSet, UIEvent) {
  PanState& state = PanClass::state(self);
  state.current = centroid(self);
  const double now = clock::now();
  std::erase_if(state.samples, [now](const Sample& one) { return one.time < now - velocityMemory; });
  state.samples.push_back({now, state.current});
  if (isActive(self)) return self.state.set(UIGestureRecognizerStateChanged);
  const double moved = std::hypot(state.current.x - state.start.x, state.current.y - state.start.y);
  if (moved >= leastMovement && downTouches(self).size() >= state.minimumTouches)
    self.state.set(UIGestureRecognizerStateBegan);
}

void touchesEnded(UIPanGestureRecognizer self, NSSet, UIEvent) {
  const NSUInteger down = downTouches(self).size();
  if (isActive(self) && down < PanClass::state(self).minimumTouches)
    return self.state.set(UIGestureRecognizerStateEnded);
  if (down == 0) return giveUp(self);
  countFingers(self);
}

void touchesCancelled(UIPanGestureRecognizer self, NSSet, UIEvent) { giveUp(self); }

CGPoint translationInView(UIPanGestureRecognizer self, UIView view) {
  const PanState& state = PanClass::state(self);
  return vectorFromWindow({state.current.x - state.start.x, state.current.y - state.start.y}, view);
}

void setTranslation(UIPanGestureRecognizer self, CGPoint translation, UIView view) {
  PanState& state = PanClass::state(self);
  const CGPoint end = view ? view.convertPoint_toView(translation, {}) : translation;
  const CGPoint origin = view ? view.convertPoint_toView({0, 0}, {}) : CGPoint{};
  state.start = {state.current.x - (end.x - origin.x), state.current.y - (end.y - origin.y)};
  state.samples = {{clock::now(), state.current}};
}

// A finger that has rested before it lifts has no velocity.
CGPoint velocityInView(UIPanGestureRecognizer self, UIView view) {
  const PanState& state = PanClass::state(self);
  const double now = clock::now();
  for (const Sample& first : state.samples) {
    if (first.time < now - velocityMemory) continue;
    const double elapsed = now - first.time;
    if (elapsed <= 0) break;
    return vectorFromWindow(
        {(state.current.x - first.location.x) / elapsed, (state.current.y - first.location.y) / elapsed},
        view);
  }
  return {};
}

}  // namespace

void definePanGestureRecognizer() {
  using bridge::method;
  using Face = UIPanGestureRecognizer;
  PanClass::define<UIGestureRecognizer>(
      PanClass::property<&Face::minimumNumberOfTouches, &PanState::minimumTouches>(),
      PanClass::property<&Face::maximumNumberOfTouches, &PanState::maximumTouches>(),
      method<&Face::touchesBegan_withEvent, touchesBegan>(),
      method<&Face::touchesMoved_withEvent, touchesMoved>(),
      method<&Face::touchesEnded_withEvent, touchesEnded>(),
      method<&Face::touchesCancelled_withEvent, touchesCancelled>(),
      method<&Face::translationInView, translationInView>(),
      method<&Face::setTranslation_inView, setTranslation>(),
      method<&Face::velocityInView, velocityInView>());
}

}  // namespace sim::uikit
