// Dragging a scroll view, and what it does after it has been let go.
#include "simulator/uikit/scrolling/scroll_dragging.hpp"

#include <algorithm>
#include <cmath>

#include "platform/uikit/control.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/animation/frames.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using physics::ScrollMotion;
using physics::ScrollRange;

// An axis of a scroll view, with what it is about to do.
struct Axis {
  double offset, velocity, length;  // the length is the view's own
  double pageStart;
  ScrollRange range;
  bool scrolls;
};

Axis horizontalAxis(UIScrollView view, double velocity) {
  return {view.contentOffset().x,   velocity,
          view.bounds().size.width, stateOf(view).pageStart.x,
          horizontalRange(view),    scrollsHorizontally(view)};
}

Axis verticalAxis(UIScrollView view, double velocity) {
  return {view.contentOffset().y,    velocity,
          view.bounds().size.height, stateOf(view).pageStart.y,
          verticalRange(view),       scrollsVertically(view)};
}

// The page nearest to where the content would coast to, but no further than the next one.
double pageTarget(const Axis& axis) {
  if (axis.length <= 0) return axis.range.nearest(axis.offset);
  const physics::Friction friction(axis.offset, axis.velocity, UIScrollViewDecelerationRateNormal);
  const double start = std::round(axis.range.nearest(axis.pageStart) / axis.length);
  const double page = std::clamp(std::round(friction.restingPlace() / axis.length), start - 1, start + 1);
  return axis.range.nearest(page * axis.length);
}

ScrollMotion motionOf(UIScrollView view, const Axis& axis) {
  const ScrollViewState& state = stateOf(view);
  if (!axis.scrolls) return ScrollMotion::towards(axis.offset, 0, axis.offset);
  if (state.pagingEnabled) return ScrollMotion::towards(axis.offset, axis.velocity, pageTarget(axis));
  return ScrollMotion::coasting(axis.offset, axis.velocity, state.decelerationRate, axis.range,
                                state.bounces);
}

struct Motions {
  ScrollMotion x, y;

  double duration() const { return std::max(x.duration(), y.duration()); }
};

Motions motionsOf(UIScrollView view, CGPoint velocity) {
  return {motionOf(view, horizontalAxis(view, velocity.x)), motionOf(view, verticalAxis(view, velocity.y))};
}

void decelerate(UIScrollView view, const Motions& motions) {
  ScrollViewState& state = stateOf(view);
  state.decelerating = true;
  tellDelegate<&UIScrollViewDelegate::scrollViewWillBeginDecelerating>(view);
  everyFrame(&state, [view, motions, start = clock::now()](double time) {
    const Strong<UIScrollView> alive = retained(view);
    const double elapsed = time - start;
    view.contentOffset.set({motions.x.position(elapsed), motions.y.position(elapsed)});
    if (elapsed < motions.duration()) return true;
    stateOf(view).decelerating = false;
    tellDelegate<&UIScrollViewDelegate::scrollViewDidEndDecelerating>(view);
    return false;
  });
}

// Where the delegate wants the content to come to rest, in place of where it would.
Motions askDelegate(UIScrollView view, const Motions& motions, CGPoint velocity) {
  const CGPoint natural{motions.x.restingPlace(), motions.y.restingPlace()};
  CGPoint target = natural;
  constexpr double perMillisecond = 1e-3;
  tellDelegate<&UIScrollViewDelegate::scrollViewWillEndDragging_withVelocity_targetContentOffset>(
      view, CGPoint{velocity.x * perMillisecond, velocity.y * perMillisecond}, &target);
  if (target == natural) return motions;
  const CGPoint from = view.contentOffset();
  return {ScrollMotion::towards(from.x, velocity.x, target.x),
          ScrollMotion::towards(from.y, velocity.y, target.y)};
}

void beginDragging(UIScrollView view) {
  ScrollViewState& state = stateOf(view);
  const CGPoint offset = view.contentOffset();
  const CGSize size = view.bounds().size;
  state.dragStart = {physics::unbanded(offset.x, horizontalRange(view), size.width),
                     physics::unbanded(offset.y, verticalRange(view), size.height)};
  state.caught = false;
  state.dragging = true;
  tellDelegate<&UIScrollViewDelegate::scrollViewWillBeginDragging>(view);
}

double dragged(const Axis& axis, double start, double translation, bool bounces) {
  if (!axis.scrolls) return axis.offset;
  const double wanted = start - translation;
  return bounces ? physics::banded(wanted, axis.range, axis.length) : axis.range.nearest(wanted);
}

void drag(UIScrollView view, CGPoint translation) {
  const ScrollViewState& state = stateOf(view);
  view.contentOffset.set({dragged(horizontalAxis(view, 0), state.dragStart.x, translation.x, state.bounces),
                          dragged(verticalAxis(view, 0), state.dragStart.y, translation.y, state.bounces)});
}

void endDragging(UIScrollView view, CGPoint velocity) {
  stateOf(view).dragging = false;
  const Motions motions = askDelegate(view, motionsOf(view, velocity), velocity);
  const bool goesOn = motions.duration() > 0;
  tellDelegate<&UIScrollViewDelegate::scrollViewDidEndDragging_willDecelerate>(view,
                                                                               static_cast<BOOL>(goesOn));
  if (goesOn) decelerate(view, motions);
}

// Content that has got the touch may not have to give it up.
bool contentKeepsTouches(UIScrollView view) {
  for (const auto& touch : stateOf(stateOf(view).pan.get()).touches) {
    const TouchState& state = stateOf(touch.get());
    if (state.delivery != TouchDelivery::begun || state.view == retained(UIView(view))) continue;
    if (!view.canCancelContentTouches() || !view.touchesShouldCancelInContentView(state.view)) return true;
  }
  return false;
}

}  // namespace

BOOL touchesShouldCancelInContentView(UIScrollView, UIView view) {
  return !bridge::isKindOf<UIControl>(view);
}

// A drag along an axis that does not scroll is somebody else's.
BOOL scrollShouldBegin(UIScrollView self, UIGestureRecognizer recognizer) {
  if (!(recognizer == stateOf(self).pan.get())) return YES;
  const CGPoint way = stateOf(self).pan->translationInView(self);
  const bool along = std::abs(way.x) >= std::abs(way.y) ? scrollsHorizontally(self) : scrollsVertically(self);
  return along && !contentKeepsTouches(self);
}

void handlePan(ScrollViewPan self, UIPanGestureRecognizer pan) {
  const CGPoint velocity = pan.velocityInView(self);
  switch (pan.state()) {
    case UIGestureRecognizerStateBegan:
      beginDragging(self);
      return drag(self, pan.translationInView(self));
    case UIGestureRecognizerStateChanged:
      return drag(self, pan.translationInView(self));
    case UIGestureRecognizerStateEnded:
      return endDragging(self, {-velocity.x, -velocity.y});
    case UIGestureRecognizerStateCancelled:
      return endDragging(self, {});
  }
}

bool fingerDown(UIScrollView view) {
  ScrollViewState& state = stateOf(view);
  state.tracking = true;
  state.caught = state.decelerating;
  state.pageStart = view.contentOffset();
  stopScrolling(view);
  return state.caught;
}

// Content that was caught between two places and not dragged goes on to one of them.
void fingersGone(UIScrollView view) {
  ScrollViewState& state = stateOf(view);
  state.tracking = false;
  if (!state.caught) return;
  state.caught = false;
  if (const Motions motions = motionsOf(view, {}); motions.duration() > 0) decelerate(view, motions);
}

}  // namespace sim::uikit
