// UIStepper: minus and plus side by side, 94 by 29 points, whatever the frame says. Each step is a tap: a
// finger that rests does not repeat it.
#include "platform/uikit/stepper.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "platform/uikit/button.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

// Points, of systems 7 to 12.
constexpr CGSize size{94, 29};
constexpr CGFloat glyphSize = 15, glyphWeight = 1.5, line = 1, corner = 4;
constexpr Color tint = rgb(0x007aff);
constexpr CGFloat dimmed = 0.35;  // a half that leads nowhere

struct StepperFace : bridge::Face<"UIStepper", UIStepper> {
  MESSAGE Method<"sim_down", void()> down;
  MESSAGE Method<"sim_up", void()> up;
};

struct StepperState {
  double value = 0, minimum = 0, maximum = 100;
  Strong<UIButton> minus, plus;
};

using StepperClass = bridge::Implementation<UIStepper, StepperState>;

Strong<UIView> makeBar(CGRect frame) {
  auto bar = bridge::make<UIView, &UIView::initWithFrame>(frame);
  const auto paint = makeColor(tint);
  bar->backgroundColor.set(paint);
  bar->userInteractionEnabled.set(NO);
  return bar;
}

Strong<UIButton> makeHalf(UIStepper self, CGFloat left, bool upright, SEL action) {
  auto half =
      bridge::make<UIButton, &UIView::initWithFrame>(CGRect{{left, 0}, {size.width / 2, size.height}});
  const CGFloat x = (size.width / 2 - glyphSize) / 2, y = (size.height - glyphWeight) / 2;
  const auto across = makeBar({{x, y}, {glyphSize, glyphWeight}});
  half->addSubview(across);
  if (upright) {
    const auto bar = makeBar(
        {{(size.width / 2 - glyphWeight) / 2, (size.height - glyphSize) / 2}, {glyphWeight, glyphSize}});
    half->addSubview(bar);
  }
  half->addTarget_action_forControlEvents(self, action, UIControlEventTouchUpInside);
  self.addSubview(half);
  return half;
}

void show(UIStepper self) {
  const StepperState& state = StepperClass::state(self);
  const auto enable = [](UIButton half, bool enabled) {
    half.enabled.set(enabled);
    half.alpha.set(enabled ? 1 : dimmed);
  };
  enable(state.minus.get(), state.value > state.minimum);
  enable(state.plus.get(), state.value < state.maximum);
}

Strong<UIView> initWithFrame(UIStepper self, CGRect frame) {
  auto made = StepperClass::super<&UIView::initWithFrame>(self, CGRect{frame.origin, size});
  const auto control = bridge::as<UIStepper>(made.get());
  StepperState& state = StepperClass::state(control);
  state.minus = makeHalf(control, 0, false, bridge::Descriptor<&StepperFace::down>::selector());
  state.plus = makeHalf(control, size.width / 2, true, bridge::Descriptor<&StepperFace::up>::selector());
  const auto middle = makeBar({{(size.width - line) / 2, 0}, {line, size.height}});
  control.addSubview(middle);
  Layer& layer = layerOf(control);
  layer.cornerRadius = corner;
  layer.borderWidth = line;
  layer.borderColor = tint;
  show(control);
  return made;
}

CGSize sizeThatFits(UIStepper, CGSize) { return size; }
void setFrame(UIStepper self, CGRect frame) {
  StepperClass::super<bridge::setterOf<&UIView::frame>>(self, CGRect{frame.origin, size});
}

double value(UIStepper self) { return StepperClass::state(self).value; }
double minimumValue(UIStepper self) { return StepperClass::state(self).minimum; }
double maximumValue(UIStepper self) { return StepperClass::state(self).maximum; }

void setValue(UIStepper self, double value) {
  StepperState& state = StepperClass::state(self);
  state.value = std::clamp(value, state.minimum, std::max(state.minimum, state.maximum));
  show(self);
}
void setMinimumValue(UIStepper self, double minimum) {
  StepperClass::state(self).minimum = minimum;
  setValue(self, value(self));
}
void setMaximumValue(UIStepper self, double maximum) {
  StepperClass::state(self).maximum = maximum;
  setValue(self, value(self));
}

void step(UIStepper self, double by) {
  setValue(self, value(self) + by);
  sendActions(self, UIControlEventValueChanged, {});
}
void down(StepperFace self) { step(self, -1); }
void up(StepperFace self) { step(self, 1); }

}  // namespace

void defineStepper() {
  using bridge::method;
  StepperClass::define<UIControl>(
      method<&UIView::initWithFrame, initWithFrame>(), method<bridge::setterOf<&UIView::frame>, setFrame>(),
      method<&UIView::sizeThatFits, sizeThatFits>(), bridge::property<&UIStepper::value, value, setValue>(),
      bridge::property<&UIStepper::minimumValue, minimumValue, setMinimumValue>(),
      bridge::property<&UIStepper::maximumValue, maximumValue, setMaximumValue>(),
      method<&StepperFace::down, down>(), method<&StepperFace::up, up>());
}

}  // namespace sim::uikit
