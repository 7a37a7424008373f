// From the glass to the windows: fingers become touches, and touches find their views.
#include "simulator/uikit/gestures/touch_dispatch.hpp"

#include <algorithm>
#include <cmath>

#include "platform/uikit/application.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/gestures/event.hpp"
#include "simulator/uikit/gestures/gesture_arbiter.hpp"
#include "simulator/uikit/gestures/touch.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

// Touches within these of the one before count as its repetition.
constexpr double repetitionInterval = 0.35;  // seconds from lifting to coming down again
constexpr double repetitionDistance = 45;    // points

struct LastTap {
  double time;
  CGPoint location;
  NSUInteger count = 0;
};

LastTap& lastTap() {
  static LastTap tap{};
  return tap;
}

double distance(CGPoint a, CGPoint b) { return std::hypot(a.x - b.x, a.y - b.y); }

CGPoint toWindow(CGPoint onScreen, UIWindow window) {
  return sim::convertPoint(onScreen, nullptr, &layerOf(window));
}

Strong<UITouch> findTouch(int finger) {
  for (const auto& touch : liveTouches())
    if (stateOf(touch.get()).finger == finger && isDown(touch)) return touch;
  return {};
}

// A view that wants one finger at a time does not hear of a second one.
bool isLeftOut(UITouch touch) {
  const UIView view = stateOf(touch).view;
  if (view.multipleTouchEnabled()) return false;
  return std::ranges::any_of(liveTouches(), [&](const auto& other) {
    const TouchState& state = stateOf(other.get());
    return state.view == retained(view) && state.delivery != TouchDelivery::over && isDown(other);
  });
}

void begin(const FingerChange& change) {
  const UIView view = viewAt(change.location);
  if (!view) return;
  auto touch = bridge::make<UITouch, &NSObject::init>();
  TouchState& state = stateOf(touch.get());
  state.finger = change.finger;
  state.timestamp = clock::now();
  state.view = retained(view);
  state.window = retained(windowOf(view));
  state.location = state.previous = state.start = toWindow(change.location, state.window);
  state.force = change.force;
  state.changed = true;
  const LastTap& last = lastTap();
  if (last.count && state.timestamp - last.time <= repetitionInterval &&
      distance(last.location, state.location) <= repetitionDistance)
    state.tapCount = last.count + 1;
  if (isLeftOut(touch)) state.delivery = TouchDelivery::over;
  liveTouches().push_back(touch);
  attachRecognizers(touch);
}

void proceed(const FingerChange& change) {
  const Strong<UITouch> touch = findTouch(change.finger);
  if (!touch) return;
  TouchState& state = stateOf(touch.get());
  state.previous = state.location;
  state.location = toWindow(change.location, state.window);
  state.timestamp = clock::now();
  state.force = change.force;
  state.phase = change.phase;
  state.changed = true;
  if (change.phase == UITouchPhaseEnded) lastTap() = {state.timestamp, state.location, state.tapCount};
}

void rest() {
  for (const auto& touch : liveTouches()) {
    TouchState& state = stateOf(touch.get());
    state.changed = false;
    if (isDown(touch)) state.phase = UITouchPhaseStationary;
  }
}

}  // namespace

UIView viewAt(CGPoint onScreen) {
  const std::vector<UIWindow> all = windows();
  for (auto window = all.rbegin(); window != all.rend(); ++window)
    if (const UIView view = window->hitTest_withEvent(toWindow(onScreen, *window), currentEvent()))
      return view;
  return {};
}

void sendFingers(const std::vector<FingerChange>& changes) {
  const bridge::Pool pool;
  layoutPass();
  rest();
  for (const FingerChange& change : changes)
    change.phase == UITouchPhaseBegan ? begin(change) : proceed(change);
  UIApplication::sharedApplication().sendEvent(currentEvent());
}

void cancelFingers() {
  std::vector<FingerChange> changes;
  for (const auto& touch : liveTouches()) {
    const TouchState& state = stateOf(touch.get());
    if (isDown(touch))
      changes.push_back({state.finger, UITouchPhaseCancelled,
                         sim::convertPoint(state.location, &layerOf(state.window.get()), nullptr)});
  }
  sendFingers(changes);
}

std::vector<Strong<UIWindow>> touchedWindows() {
  std::vector<Strong<UIWindow>> found;
  for (const auto& touch : liveTouches()) {
    const TouchState& state = stateOf(touch.get());
    if (state.changed && std::ranges::find(found, state.window) == found.end()) found.push_back(state.window);
  }
  return found;
}

void deliverTouches(UIWindow window) {
  inGestureCycle([window] {
    std::vector<UITouch> changed;
    for (const auto& touch : liveTouches()) {
      const TouchState& state = stateOf(touch.get());
      if (state.changed && state.window == retained(window)) changed.push_back(touch);
    }
    deliverToRecognizers(changed);
  });
}

}  // namespace sim::uikit
