// UIScrollView: what it is told, and its offset.
#include "simulator/uikit/scrolling/scroll_view.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/quartz/timing.hpp"
#include "simulator/uikit/animation/frames.hpp"
#include "simulator/uikit/scrolling/scroll_dragging.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using ScrollViewClass = bridge::Implementation<UIScrollView, ScrollViewState>;

constexpr double scrollDuration = 0.3;  // seconds, of an animated change of the offset

// The offset is where the bounds begin.
CGPoint contentOffset(UIScrollView self) { return self.bounds().origin; }

void setContentOffset(UIScrollView self, CGPoint offset) { self.bounds.set({offset, self.bounds().size}); }

// Frame by frame, so that whoever looks at the offset sees it move.
void setContentOffsetAnimated(UIScrollView self, CGPoint offset, BOOL animated) {
  stopScrolling(self);
  if (!animated || !self.window()) return self.contentOffset.set(offset);
  const CGPoint from = self.contentOffset();
  const double start = clock::now();
  everyFrame(&stateOf(self), [self, from, offset, start](double time) {
    const Strong<UIScrollView> alive = retained(self);
    const double elapsed = time - start;
    const double progress = progressAt(easeInOutCurve, elapsed, scrollDuration);
    self.contentOffset.set(progress < 1 ? CGPoint{from.x + (offset.x - from.x) * progress,
                                                  from.y + (offset.y - from.y) * progress}
                                        : offset);
    if (progress < 1) return true;
    tellDelegate<&UIScrollViewDelegate::scrollViewDidEndScrollingAnimation>(self);
    return false;
  });
}

// Subviews that stay in place while the content moves are put there by layoutSubviews, which each move calls
// for.
void setBounds(UIScrollView self, CGRect bounds) {
  const CGPoint old = self.bounds().origin;
  ScrollViewClass::super<bridge::setterOf<&UIView::bounds>>(self, bounds);
  if (self.bounds().origin == old) return;
  self.setNeedsLayout();
  tellDelegate<&UIScrollViewDelegate::scrollViewDidScroll>(self);
}

Strong<UIView> initWithFrame(UIScrollView self, CGRect frame) {
  auto made = ScrollViewClass::super<&UIView::initWithFrame>(self, frame);
  made->clipsToBounds.set(YES);
  const auto view = bridge::as<UIScrollView>(made.get());
  stateOf(view).pan = makeScrollPan(view);
  view.addGestureRecognizer(stateOf(view).pan);
  return made;
}

UIPanGestureRecognizer panGestureRecognizer(UIScrollView self) { return stateOf(self).pan; }
BOOL isScrollEnabled(UIScrollView self) { return self.panGestureRecognizer().enabled(); }
void setScrollEnabled(UIScrollView self, BOOL enabled) { self.panGestureRecognizer().enabled.set(enabled); }
BOOL isTracking(UIScrollView self) { return stateOf(self).tracking; }
BOOL isDragging(UIScrollView self) { return stateOf(self).dragging; }
BOOL isDecelerating(UIScrollView self) { return stateOf(self).decelerating; }

physics::ScrollRange rangeOf(double insetBefore, double content, double insetAfter, double room) {
  return {-insetBefore, std::max(-insetBefore, content + insetAfter - room)};
}

template <auto Member, auto Field>
bridge::PropertyEntry property() {
  return ScrollViewClass::property<Member, Field>();
}

}  // namespace

ScrollViewState::~ScrollViewState() { stopFrames(this); }

ScrollViewState& stateOf(UIScrollView view) { return ScrollViewClass::state(view); }

physics::ScrollRange horizontalRange(UIScrollView view) {
  const ScrollViewState& state = stateOf(view);
  return rangeOf(state.contentInset.left, state.contentSize.width, state.contentInset.right,
                 view.bounds().size.width);
}

physics::ScrollRange verticalRange(UIScrollView view) {
  const ScrollViewState& state = stateOf(view);
  return rangeOf(state.contentInset.top, state.contentSize.height, state.contentInset.bottom,
                 view.bounds().size.height);
}

bool scrollsHorizontally(UIScrollView view) {
  const physics::ScrollRange range = horizontalRange(view);
  return range.high > range.low || (stateOf(view).bounces && stateOf(view).alwaysBounceHorizontal);
}

bool scrollsVertically(UIScrollView view) {
  const physics::ScrollRange range = verticalRange(view);
  return range.high > range.low || (stateOf(view).bounces && stateOf(view).alwaysBounceVertical);
}

void stopScrolling(UIScrollView view) {
  stopFrames(&stateOf(view));
  stateOf(view).decelerating = false;
}

bridge::Object delegateFor(UIScrollView view, SEL method) {
  const bridge::Object delegate = stateOf(view).delegate.get();
  return delegate && bridge::as<NSObject>(delegate).respondsToSelector(method) ? delegate : bridge::Object();
}

void defineScrollView() {
  using bridge::method;
  using Face = UIScrollView;
  using State = ScrollViewState;
  defineScrollPan();
  ScrollViewClass::define<UIView>(
      method<&UIView::initWithFrame, initWithFrame>(), method<bridge::setterOf<&UIView::bounds>, setBounds>(),
      bridge::property<&Face::contentOffset, contentOffset, setContentOffset>(),
      method<&Face::setContentOffset_animated, setContentOffsetAnimated>(),
      property<&Face::contentSize, &State::contentSize>(),
      property<&Face::contentInset, &State::contentInset>(),
      property<&Face::pagingEnabled, &State::pagingEnabled>(), property<&Face::bounces, &State::bounces>(),
      property<&Face::alwaysBounceHorizontal, &State::alwaysBounceHorizontal>(),
      property<&Face::alwaysBounceVertical, &State::alwaysBounceVertical>(),
      property<&Face::decelerationRate, &State::decelerationRate>(),
      property<&Face::delaysContentTouches, &State::delaysContentTouches>(),
      property<&Face::canCancelContentTouches, &State::canCancelContentTouches>(),
      property<&Face::showsHorizontalScrollIndicator, &State::showsHorizontalIndicator>(),
      property<&Face::showsVerticalScrollIndicator, &State::showsVerticalIndicator>(),
      property<&Face::delegate, &State::delegate>(),
      method<&Face::panGestureRecognizer, panGestureRecognizer>(),
      bridge::property<&Face::scrollEnabled, isScrollEnabled, setScrollEnabled>(),
      method<&Face::isTracking, isTracking>(), method<&Face::isDragging, isDragging>(),
      method<&Face::isDecelerating, isDecelerating>(),
      // Dragging.
      method<&Face::touchesShouldCancelInContentView, touchesShouldCancelInContentView>(),
      method<&UIView::gestureRecognizerShouldBegin, scrollShouldBegin>(),
      method<&ScrollViewPan::handlePan, handlePan>());
}

}  // namespace sim::uikit
