// UISlider: a thumb on a track. It is dragged by the thumb alone, and follows the finger that holds it.
#include "simulator/uikit/controls/slider.hpp"

#include <algorithm>
#include <cmath>

#include "bridge/define.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

// Measures of system 7 and later, points.
constexpr CGFloat thumbSize = 31, trackHeight = 2;
constexpr CGFloat trackMargin = 2;      // from either end of the bounds
constexpr CGFloat grip = 6.5;           // around the thumb, in which a finger still takes hold of it
constexpr double slideDuration = 0.25;  // seconds, of an animated change
constexpr Color trackColor = rgb(0xb7b7b7);
constexpr CGSize shadowOffset{0, 3};
constexpr double shadowRadius = 4, shadowOpacity = 0.2;
constexpr Color edgeColor = rgb(0x000000, 0.08);
constexpr double edgeWidth = 0.5;

struct SliderState {
  float value = 0, minimum = 0, maximum = 1;
  BOOL continuous = YES;
  Strong<UIColor> minimumTint, maximumTint;  // none: the system's colours
  Strong<UIView> minimumTrack, maximumTrack, thumb;
  CGFloat hold = 0;  // of the finger, from the thumb's left edge
};

using SliderClass = bridge::Implementation<UISlider, SliderState>;

SliderState& stateOf(UISlider self) { return SliderClass::state(self); }

// How far along its range a value is, from 0 to 1.
double fractionOf(const SliderState& state, float value) {
  const double range = static_cast<double>(state.maximum) - state.minimum;
  return range > 0 ? (static_cast<double>(value) - state.minimum) / range : 0;
}

CGRect trackRect(UISlider, CGRect bounds) {
  return {{bounds.origin.x + trackMargin, bounds.origin.y + (bounds.size.height - trackHeight) / 2},
          {std::max<CGFloat>(bounds.size.width - 2 * trackMargin, 0), trackHeight}};
}

// The way of the thumb's left edge.
CGFloat travelOf(CGRect track) {
  return std::max<CGFloat>(track.size.width + 2 * trackMargin - thumbSize, 0.0);
}

CGRect thumbRect(UISlider self, CGRect, CGRect track, float value) {
  const double along = fractionOf(stateOf(self), value);
  return {{track.origin.x - trackMargin + travelOf(track) * along,
           track.origin.y + (track.size.height - thumbSize) / 2},
          {thumbSize, thumbSize}};
}

UIColor orElse(UIColor color, UIColor otherwise) { return color ? color : otherwise; }

// Puts the parts where the value wants them.
void placeParts(UISlider self) {
  const SliderState& state = stateOf(self);
  const CGRect track = self.trackRectForBounds(self.bounds());
  const CGRect thumb = thumbRectOf(self, state.value);
  const CGFloat middle = thumb.origin.x + thumb.size.width / 2;
  const CGFloat end = track.origin.x + track.size.width;
  state.thumb->frame.set(thumb);
  state.minimumTrack->frame.set(
      {track.origin, {std::max<CGFloat>(middle - track.origin.x, 0.0), track.size.height}});
  state.maximumTrack->frame.set(
      {{middle, track.origin.y}, {std::max<CGFloat>(end - middle, 0.0), track.size.height}});
}

void layoutSubviews(UISlider self) {
  const SliderState& state = stateOf(self);
  const auto gray = makeColor(trackColor);
  state.minimumTrack->backgroundColor.set(orElse(state.minimumTint, self.tintColor()));
  state.maximumTrack->backgroundColor.set(orElse(state.maximumTint, gray));
  placeParts(self);
}

float value(UISlider self) { return stateOf(self).value; }

// Answers whether the value is another one now.
bool change(UISlider self, float value) {
  SliderState& state = stateOf(self);
  const float old = state.value;
  state.value = std::clamp(value, state.minimum, state.maximum);
  if (state.value == old) return false;
  self.setNeedsLayout();
  return true;
}

void setValueAnimated(UISlider self, float value, BOOL animated) {
  if (!animated) {
    change(self, value);
    return;
  }
  placeParts(self);
  if (!change(self, value)) return;
  UIView::animateWithDuration_delay_options_animations_completion(
      slideDuration, 0,
      UIViewAnimationOptionBeginFromCurrentState | UIViewAnimationOptionAllowUserInteraction,
      bridge::Block<void()>([self] { placeParts(self); }), {});
}

void setValue(UISlider self, float value) { self.setValue_animated(value, NO); }

float minimumValue(UISlider self) { return stateOf(self).minimum; }
float maximumValue(UISlider self) { return stateOf(self).maximum; }

// A bound that passes the other one takes it along.
void setRange(UISlider self, float minimum, float maximum) {
  SliderState& state = stateOf(self);
  state.minimum = minimum;
  state.maximum = maximum;
  change(self, state.value);
  self.setNeedsLayout();
}

void setMinimumValue(UISlider self, float minimum) {
  setRange(self, minimum, std::max(minimum, stateOf(self).maximum));
}

void setMaximumValue(UISlider self, float maximum) {
  setRange(self, std::min(maximum, stateOf(self).minimum), maximum);
}

void tinted(UISlider self) { self.setNeedsLayout(); }

// Dragging.

bool isOnThumb(UISlider self, CGPoint point) {
  const CGRect thumb = thumbRectOf(self, stateOf(self).value);
  return point.x >= thumb.origin.x - grip && point.x <= thumb.origin.x + thumb.size.width + grip &&
         point.y >= thumb.origin.y - grip && point.y <= thumb.origin.y + thumb.size.height + grip;
}

// The value at which the thumb's left edge is there.
float valueAt(UISlider self, CGFloat left) {
  const SliderState& state = stateOf(self);
  const CGRect track = self.trackRectForBounds(self.bounds());
  const CGFloat travel = travelOf(track);
  if (travel <= 0) return state.minimum;
  const double along = std::clamp<double>((left - track.origin.x + trackMargin) / travel, 0.0, 1.0);
  return static_cast<float>(state.minimum + along * (static_cast<double>(state.maximum) - state.minimum));
}

bool follow(UISlider self, UITouch touch) {
  return change(self, valueAt(self, touch.locationInView(self).x - stateOf(self).hold));
}

BOOL beginTracking(UISlider self, UITouch touch, UIEvent) {
  const CGPoint at = touch.locationInView(self);
  if (!isOnThumb(self, at)) return NO;
  stateOf(self).hold = at.x - thumbRectOf(self, stateOf(self).value).origin.x;
  return YES;
}

BOOL continueTracking(UISlider self, UITouch touch, UIEvent event) {
  if (follow(self, touch) && stateOf(self).continuous) sendActions(self, UIControlEventValueChanged, event);
  return YES;
}

// The last event of a drag always tells of the value.
void endTracking(UISlider self, UITouch touch, UIEvent event) {
  follow(self, touch);
  sendActions(self, UIControlEventValueChanged, event);
}

// Where a recogniser's gesture began, and which way it goes.
struct Stroke {
  CGPoint start;
  bool horizontal;
};

Stroke strokeOf(UISlider self, UIGestureRecognizer recognizer) {
  const CGPoint at = recognizer.locationInView(self);
  if (bridge::isKindOf<UISwipeGestureRecognizer>(recognizer)) {
    const NSUInteger direction = bridge::as<UISwipeGestureRecognizer>(recognizer).direction();
    return {at, (direction &
                 (UISwipeGestureRecognizerDirectionLeft | UISwipeGestureRecognizerDirectionRight)) != 0};
  }
  const CGPoint way = bridge::as<UIPanGestureRecognizer>(recognizer).translationInView(self);
  return {{at.x - way.x, at.y - way.y}, std::abs(way.x) >= std::abs(way.y)};
}

// A stroke along the slider that began on the thumb is the thumb's alone. The thumb may hear of the finger
// later than the recogniser, or may have followed it already.
BOOL gestureRecognizerShouldBegin(UISlider self, UIGestureRecognizer recognizer) {
  const bool strokes = bridge::isKindOf<UIPanGestureRecognizer>(recognizer) ||
                       bridge::isKindOf<UISwipeGestureRecognizer>(recognizer);
  if (!strokes) return SliderClass::super<&UIView::gestureRecognizerShouldBegin>(self, recognizer);
  if (recognizer.view() == self || !self.enabled()) return YES;
  const Stroke stroke = strokeOf(self, recognizer);
  return !stroke.horizontal || !(self.isTracking() || isOnThumb(self, stroke.start));
}

// Making one.

Strong<UIView> addPart(UISlider self) {
  auto part = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  part->userInteractionEnabled.set(NO);
  self.addSubview(part);
  return part;
}

void drawThumb(UIView thumb) {
  thumb.backgroundColor.set(UIColor::whiteColor());
  Layer& layer = layerOf(thumb);
  layer.cornerRadius = thumbSize / 2;
  layer.borderWidth = edgeWidth;
  layer.borderColor = edgeColor;
  layer.shadowOpacity = shadowOpacity;
  layer.shadowOffset = shadowOffset;
  layer.shadowRadius = shadowRadius;
}

Strong<UIView> initWithFrame(UISlider self, CGRect frame) {
  auto made = SliderClass::super<&UIView::initWithFrame>(self, frame);
  SliderState& state = stateOf(bridge::as<UISlider>(made.get()));
  for (Strong<UIView>* part : {&state.maximumTrack, &state.minimumTrack, &state.thumb})
    *part = addPart(bridge::as<UISlider>(made.get()));
  for (const Strong<UIView>& track : {state.minimumTrack, state.maximumTrack})
    layerOf(track.get()).cornerRadius = trackHeight / 2;
  drawThumb(state.thumb);
  return made;
}

CGSize sizeThatFits(UISlider, CGSize size) { return {size.width, thumbSize}; }

}  // namespace

CGRect thumbRectOf(UISlider slider, float value) {
  const CGRect bounds = slider.bounds();
  return slider.thumbRectForBounds_trackRect_value(bounds, slider.trackRectForBounds(bounds), value);
}

void defineSlider() {
  using bridge::method;
  using Face = UISlider;
  SliderClass::define<UIControl>(
      method<&UIView::initWithFrame, initWithFrame>(), method<&UIView::sizeThatFits, sizeThatFits>(),
      method<&UIView::layoutSubviews, layoutSubviews>(), bridge::property<&Face::value, value, setValue>(),
      method<&Face::setValue_animated, setValueAnimated>(),
      bridge::property<&Face::minimumValue, minimumValue, setMinimumValue>(),
      bridge::property<&Face::maximumValue, maximumValue, setMaximumValue>(),
      SliderClass::property<&Face::continuous, &SliderState::continuous>(),
      SliderClass::property<&Face::minimumTrackTintColor, &SliderState::minimumTint, tinted>(),
      SliderClass::property<&Face::maximumTrackTintColor, &SliderState::maximumTint, tinted>(),
      method<&Face::trackRectForBounds, trackRect>(),
      method<&Face::thumbRectForBounds_trackRect_value, thumbRect>(),
      // Dragging.
      method<&UIControl::beginTrackingWithTouch_withEvent, beginTracking>(),
      method<&UIControl::continueTrackingWithTouch_withEvent, continueTracking>(),
      method<&UIControl::endTrackingWithTouch_withEvent, endTracking>(),
      method<&UIView::gestureRecognizerShouldBegin, gestureRecognizerShouldBegin>());
}

}  // namespace sim::uikit
