// UIGestureRecognizer: what every kind of recogniser has.
#include "simulator/uikit/gestures/gesture_recognizer.hpp"

#include <algorithm>
#include <utility>

#include "bridge/define.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/animation/frames.hpp"
#include "simulator/uikit/gestures/gesture_arbiter.hpp"
#include "simulator/uikit/gestures/touch.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using RecognizerClass = bridge::Implementation<UIGestureRecognizer, RecognizerState>;

Strong<UIGestureRecognizer> initWithTarget(UIGestureRecognizer self, bridge::Object target, SEL action) {
  auto made = RecognizerClass::superInit<&NSObject::init>(self);
  made->addTarget_action(target, action);
  return made;
}

void addTarget(UIGestureRecognizer self, bridge::Object target, SEL action) {
  if (target && action) stateOf(self).targets.push_back({Weak(target), action});
}

void removeTarget(UIGestureRecognizer self, bridge::Object target, SEL action) {
  std::erase_if(stateOf(self).targets, [=](const RecognizerState::Target& one) {
    return (!target || one.object.get() == target) && (!action || sel_isEqual(one.action, action));
  });
}

void enabledOrNot(UIGestureRecognizer self) {
  if (!stateOf(self).enabled) abandonGesture(self);
}

NSInteger state(UIGestureRecognizer self) { return stateOf(self).state; }
UIView view(UIGestureRecognizer self) { return stateOf(self).view; }

void requireToFail(UIGestureRecognizer self, UIGestureRecognizer other) {
  stateOf(self).requiredToFail.push_back(Weak(other));
}

CGPoint locationInView(UIGestureRecognizer self, UIView view) { return fromWindow(centroid(self), view); }
NSUInteger numberOfTouches(UIGestureRecognizer self) { return stateOf(self).touches.size(); }

CGPoint locationOfTouch(UIGestureRecognizer self, NSUInteger index, UIView view) {
  return stateOf(self).touches.at(index)->locationInView(view);
}

void setState(UIGestureRecognizer self, NSInteger state) { requestState(self, state); }
void reset(UIGestureRecognizer) {}
BOOL canPrevent(UIGestureRecognizer, UIGestureRecognizer) { return YES; }

// A plain recogniser recognises nothing, and does not keep touches from views once they are over.
void touchesGoOn(UIGestureRecognizer, NSSet, UIEvent) {}
void touchesStop(UIGestureRecognizer self, NSSet, UIEvent) {
  if (downTouches(self).empty()) giveUp(self);
}

}  // namespace

RecognizerState::~RecognizerState() { stopFrames(this); }

RecognizerState& stateOf(UIGestureRecognizer recognizer) { return RecognizerClass::state(recognizer); }

std::vector<UITouch> downTouches(UIGestureRecognizer recognizer) {
  std::vector<UITouch> down;
  for (const auto& touch : stateOf(recognizer).touches)
    if (isDown(touch)) down.push_back(touch);
  return down;
}

CGPoint centroid(UIGestureRecognizer recognizer) {
  RecognizerState& state = stateOf(recognizer);
  std::vector<UITouch> counted = downTouches(recognizer);
  if (counted.empty()) counted.assign(state.touches.begin(), state.touches.end());
  if (counted.empty()) return state.lastLocation;
  CGPoint sum{};
  for (const UITouch touch : counted) {
    sum.x += stateOf(touch).location.x;
    sum.y += stateOf(touch).location.y;
  }
  const auto count = static_cast<double>(counted.size());
  return state.lastLocation = {sum.x / count, sum.y / count};
}

CGPoint fromWindow(CGPoint point, UIView view) {
  return view ? view.convertPoint_fromView(point, {}) : point;
}

CGPoint vectorFromWindow(CGPoint vector, UIView view) {
  const CGPoint start = fromWindow({0, 0}, view), end = fromWindow(vector, view);
  return {end.x - start.x, end.y - start.y};
}

void startTimer(UIGestureRecognizer recognizer, double seconds, std::function<void()> work) {
  constexpr double rounding = 1e-6;  // the clock's step
  const double due = clock::now() + seconds - rounding;
  everyFrame(&stateOf(recognizer), [recognizer, due, work = std::move(work)](double time) {
    if (time < due) return true;
    const Strong<UIGestureRecognizer> alive = retained(recognizer);
    inGestureCycle(work);
    return false;
  });
}

void stopTimer(UIGestureRecognizer recognizer) { stopFrames(&stateOf(recognizer)); }

void giveUp(UIGestureRecognizer recognizer) {
  const NSInteger state = recognizer.state();
  if (state == UIGestureRecognizerStatePossible)
    recognizer.state.set(UIGestureRecognizerStateFailed);
  else if (state == UIGestureRecognizerStateBegan || state == UIGestureRecognizerStateChanged)
    recognizer.state.set(UIGestureRecognizerStateCancelled);
}

void defineGestureRecognizer() {
  using bridge::method;
  using Face = UIGestureRecognizer;
  RecognizerClass::define<NSObject>(
      method<&Face::initWithTarget_action, initWithTarget>(), method<&Face::addTarget_action, addTarget>(),
      method<&Face::removeTarget_action, removeTarget>(),
      RecognizerClass::property<&Face::delegate, &RecognizerState::delegate>(),
      RecognizerClass::property<&Face::enabled, &RecognizerState::enabled, enabledOrNot>(),
      method<&Face::state, state>(), method<&Face::view, view>(),
      RecognizerClass::property<&Face::cancelsTouchesInView, &RecognizerState::cancelsTouchesInView>(),
      RecognizerClass::property<&Face::delaysTouchesBegan, &RecognizerState::delaysTouchesBegan>(),
      RecognizerClass::property<&Face::delaysTouchesEnded, &RecognizerState::delaysTouchesEnded>(),
      method<&Face::requireGestureRecognizerToFail, requireToFail>(),
      method<&Face::locationInView, locationInView>(), method<&Face::numberOfTouches, numberOfTouches>(),
      method<&Face::locationOfTouch_inView, locationOfTouch>(),
      method<bridge::setterOf<&Face::state>, setState>(), method<&Face::reset, reset>(),
      method<&Face::canPreventGestureRecognizer, canPrevent>(),
      method<&Face::canBePreventedByGestureRecognizer, canPrevent>(),
      method<&Face::touchesBegan_withEvent, touchesGoOn>(),
      method<&Face::touchesMoved_withEvent, touchesGoOn>(),
      method<&Face::touchesEnded_withEvent, touchesStop>(),
      method<&Face::touchesCancelled_withEvent, touchesStop>());
}

}  // namespace sim::uikit
