// UISwitch: a thumb on a track of 51 by 31 points, whatever the frame says.
#include "platform/uikit/switch.hpp"

#include "bridge/define.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

// Points and seconds, of system 7 and later.
constexpr CGSize size{51, 31};
constexpr CGFloat thumbSize = 27, margin = 2;
constexpr double borderWidth = 1.5;
constexpr double slideDuration = 0.25;
constexpr Color onColor = rgb(0x4cd964), offColor = rgb(0xe5e5e5), thumbColor = rgb(0xffffff);

struct SwitchState {
  BOOL on = NO;
  Strong<UIView> thumb;
};

using SwitchClass = bridge::Implementation<UISwitch, SwitchState>;

// Border and filling, for both states.
void place(UISwitch self) {
  const SwitchState& state = SwitchClass::state(self);
  const CGFloat x = state.on ? size.width - thumbSize - margin : margin;
  state.thumb->frame.set({{x, margin}, {thumbSize, thumbSize}});
  const auto color = makeColor(state.on ? onColor : thumbColor);
  self.backgroundColor.set(color);
  layerOf(self).borderColor = state.on ? onColor : offColor;
}

CGSize sizeThatFits(UISwitch, CGSize) { return size; }

void setFrame(UISwitch self, CGRect frame) {
  SwitchClass::super<bridge::setterOf<&UIView::frame>>(self, CGRect{frame.origin, size});
}

Strong<UIView> initWithFrame(UISwitch self, CGRect frame) {
  auto made = SwitchClass::super<&UIView::initWithFrame>(self, CGRect{frame.origin, size});
  const auto control = bridge::as<UISwitch>(made.get());
  SwitchState& state = SwitchClass::state(control);
  state.thumb = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  state.thumb->userInteractionEnabled.set(NO);
  const auto white = makeColor(thumbColor);
  state.thumb->backgroundColor.set(white);
  Layer& thumb = layerOf(state.thumb.get());
  thumb.cornerRadius = thumbSize / 2;
  thumb.shadowOpacity = 0.2;
  thumb.shadowOffset = {0, 3};
  thumb.shadowRadius = 3;
  control.addSubview(state.thumb);
  layerOf(control).cornerRadius = size.height / 2;
  layerOf(control).borderWidth = borderWidth;
  place(control);
  return made;
}

BOOL isOn(UISwitch self) { return SwitchClass::state(self).on; }

void setOnAnimated(UISwitch self, BOOL on, BOOL animated) {
  SwitchClass::state(self).on = on ? YES : NO;
  if (!animated) return place(self);
  UIView::animateWithDuration_delay_options_animations_completion(
      slideDuration, 0,
      UIViewAnimationOptionBeginFromCurrentState | UIViewAnimationOptionAllowUserInteraction,
      bridge::Block<void()>([self] { place(self); }), {});
}

void setOn(UISwitch self, BOOL on) { setOnAnimated(self, on, NO); }

// A tap anywhere on it, and a finger that has slid off its end, turn it over.
void endTracking(UISwitch self, UITouch, UIEvent event) {
  setOnAnimated(self, !isOn(self), YES);
  sendActions(self, UIControlEventValueChanged, event);
}

}  // namespace

void defineSwitch() {
  using bridge::method;
  SwitchClass::define<UIControl>(
      method<&UIView::initWithFrame, initWithFrame>(), method<bridge::setterOf<&UIView::frame>, setFrame>(),
      method<&UIView::sizeThatFits, sizeThatFits>(), bridge::property<&UISwitch::on, isOn, setOn>(),
      method<&UISwitch::setOn_animated, setOnAnimated>(),
      method<&UIControl::endTrackingWithTouch_withEvent, endTracking>());
}

}  // namespace sim::uikit
