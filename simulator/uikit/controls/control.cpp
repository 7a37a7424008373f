// UIControl: targets, states, and a finger followed from the moment it comes down.
#include "simulator/uikit/controls/control.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "bridge/define.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/runtime/weak.hpp"
#include "simulator/uikit/gestures/event.hpp"
#include "simulator/uikit/gestures/touch.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr double tolerance = 70;  // points around a control in which a finger still counts as inside

struct Target {
  Weak object;
  bool upTheChain;  // there never was an object
  SEL action;
  NSUInteger events;
};

struct ControlState {
  std::vector<Target> targets;
  BOOL enabled = YES, highlighted = NO, selected = NO;
  BOOL tracking = NO, touchInside = NO;
  UITouch touch;  // the one that is tracked; not retained
};

using ControlClass = bridge::Implementation<UIControl, ControlState>;

void addTarget(UIControl self, bridge::Object target, SEL action, NSUInteger events) {
  std::vector<Target>& targets = ControlClass::state(self).targets;
  for (Target& one : targets) {
    if (!(one.object.get() == target) || !sel_isEqual(one.action, action)) continue;
    one.events |= events;
    return;
  }
  targets.push_back({Weak(target), !target, action, events});
}

// No target, or no action, stands for any.
void removeTarget(UIControl self, bridge::Object target, SEL action, NSUInteger events) {
  std::vector<Target>& targets = ControlClass::state(self).targets;
  for (Target& one : targets)
    if ((!target || one.object.get() == target) && (!action || sel_isEqual(one.action, action)))
      one.events &= ~events;
  std::erase_if(targets, [](const Target& one) { return one.events == 0; });
}

void sendAction(UIControl self, SEL action, bridge::Object target, UIEvent event) {
  UIApplication::sharedApplication().sendAction_to_from_forEvent(action, target, self, event);
}

void sendActionsForControlEvents(UIControl self, NSUInteger events) { sendActions(self, events, {}); }

NSUInteger state(UIControl self) {
  NSUInteger bits = UIControlStateNormal;
  if (!self.enabled()) bits |= UIControlStateDisabled;
  if (self.highlighted()) bits |= UIControlStateHighlighted;
  if (self.selected()) bits |= UIControlStateSelected;
  return bits;
}

template <BOOL ControlState::* Field>
BOOL flag(UIControl self) {
  return ControlClass::state(self).*Field;
}

// A change of state may change how the control looks.
template <BOOL ControlState::* Field>
void setFlag(UIControl self, BOOL value) {
  if (std::exchange(ControlClass::state(self).*Field, value) != value) self.setNeedsLayout();
}

BOOL beginTracking(UIControl, UITouch, UIEvent) { return YES; }
void endTracking(UIControl, UITouch, UIEvent) {}
void cancelTracking(UIControl, UIEvent) {}

bool isInside(UIControl self, UITouch touch) {
  const CGRect bounds = self.bounds();
  const CGPoint at = touch.locationInView(self);
  return at.x >= bounds.origin.x - tolerance && at.x < bounds.origin.x + bounds.size.width + tolerance &&
         at.y >= bounds.origin.y - tolerance && at.y < bounds.origin.y + bounds.size.height + tolerance;
}

void stopTracking(UIControl self) {
  ControlState& state = ControlClass::state(self);
  state.tracking = NO;
  state.touchInside = NO;
  state.touch = {};
  self.highlighted.set(NO);
}

// The tracked touch, when it is one of the set.
UITouch trackedOf(UIControl self, NSSet touches) {
  const ControlState& state = ControlClass::state(self);
  return state.tracking && touches.containsObject(state.touch) ? state.touch : UITouch();
}

void touchesBegan(UIControl self, NSSet touches, UIEvent event) {
  ControlState& state = ControlClass::state(self);
  if (!self.enabled() || state.tracking) return;
  const UITouch touch = bridge::as<UITouch>(touches.anyObject());
  state.touch = touch;
  state.tracking = YES;
  state.touchInside = YES;
  self.highlighted.set(YES);
  if (!self.beginTrackingWithTouch_withEvent(touch, event)) return stopTracking(self);
  sendActions(self, UIControlEventTouchDown | (touch.tapCount() > 1 ? UIControlEventTouchDownRepeat : 0),
              event);
}

void touchesMoved(UIControl self, NSSet touches, UIEvent event) {
  const UITouch touch = trackedOf(self, touches);
  if (!touch) return;
  ControlState& state = ControlClass::state(self);
  const bool was = state.touchInside;
  const bool is = isInside(self, touch);
  state.touchInside = is;
  if (was != is) self.highlighted.set(is);
  if (!self.continueTrackingWithTouch_withEvent(touch, event)) return stopTracking(self);
  if (was != is) sendActions(self, is ? UIControlEventTouchDragEnter : UIControlEventTouchDragExit, event);
  sendActions(self, is ? UIControlEventTouchDragInside : UIControlEventTouchDragOutside, event);
}

void touchesEnded(UIControl self, NSSet touches, UIEvent event) {
  const UITouch touch = trackedOf(self, touches);
  if (!touch) return;
  const Strong<UIControl> alive = retained(self);
  const bool inside = isInside(self, touch);
  self.endTrackingWithTouch_withEvent(touch, event);
  stopTracking(self);
  sendActions(self, inside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside, event);
}

void touchesCancelled(UIControl self, NSSet touches, UIEvent event) {
  if (!trackedOf(self, touches)) return;
  const Strong<UIControl> alive = retained(self);
  self.cancelTrackingWithEvent(event);
  stopTracking(self);
  sendActions(self, UIControlEventTouchCancel, event);
}

// A control that takes taps keeps a view above it from taking a single tap of one finger as well.
BOOL gestureRecognizerShouldBegin(UIControl self, UIGestureRecognizer recognizer) {
  if (recognizer.view() == self || !self.enabled()) return YES;
  if (!bridge::isKindOf<UITapGestureRecognizer>(recognizer)) return YES;
  const auto tap = bridge::as<UITapGestureRecognizer>(recognizer);
  return tap.numberOfTapsRequired() > 1 || tap.numberOfTouchesRequired() > 1;
}

}  // namespace

void sendActions(UIControl control, NSUInteger events, UIEvent event) {
  const Strong<UIControl> alive = retained(control);
  const std::vector<Target> targets = ControlClass::state(control).targets;  // an action may change them
  for (const Target& one : targets)
    if ((one.events & events) && (one.upTheChain || one.object.get()))
      control.sendAction_to_forEvent(one.action, one.object.get(), event);
}

NSUInteger eventsOf(UIControl control) {
  NSUInteger events = 0;
  for (const Target& one : ControlClass::state(control).targets) events |= one.events;
  return events;
}

void defineControl() {
  using bridge::method;
  using Face = UIControl;
  ControlClass::define<UIView>(
      method<&Face::addTarget_action_forControlEvents, addTarget>(),
      method<&Face::removeTarget_action_forControlEvents, removeTarget>(),
      method<&Face::sendActionsForControlEvents, sendActionsForControlEvents>(),
      method<&Face::sendAction_to_forEvent, sendAction>(), method<&Face::state, state>(),
      bridge::property<&Face::enabled, flag<&ControlState::enabled>, setFlag<&ControlState::enabled>>(),
      bridge::property<&Face::highlighted, flag<&ControlState::highlighted>,
                       setFlag<&ControlState::highlighted>>(),
      bridge::property<&Face::selected, flag<&ControlState::selected>, setFlag<&ControlState::selected>>(),
      // Tracking.
      method<&Face::isTracking, flag<&ControlState::tracking>>(),
      method<&Face::isTouchInside, flag<&ControlState::touchInside>>(),
      method<&Face::beginTrackingWithTouch_withEvent, beginTracking>(),
      method<&Face::continueTrackingWithTouch_withEvent, beginTracking>(),
      method<&Face::endTrackingWithTouch_withEvent, endTracking>(),
      method<&Face::cancelTrackingWithEvent, cancelTracking>(),
      method<&UIResponder::touchesBegan_withEvent, touchesBegan>(),
      method<&UIResponder::touchesMoved_withEvent, touchesMoved>(),
      method<&UIResponder::touchesEnded_withEvent, touchesEnded>(),
      method<&UIResponder::touchesCancelled_withEvent, touchesCancelled>(),
      method<&UIView::gestureRecognizerShouldBegin, gestureRecognizerShouldBegin>());
}

}  // namespace sim::uikit
