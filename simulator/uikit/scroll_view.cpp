// UIScrollView.
#include "simulator/uikit/scroll_view.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/quartz/timing.hpp"
#include "simulator/uikit/frames.hpp"
#include "simulator/uikit/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr double scrollDuration = 0.3;  // seconds, of an animated change of the offset

struct ScrollViewState {
  CGSize contentSize{};
  UIEdgeInsets contentInset{};
  BOOL pagingEnabled = NO;

  ~ScrollViewState() { stopFrames(this); }
};

using ScrollViewClass = bridge::Implementation<UIScrollView, ScrollViewState>;

// The offset is where the bounds begin.
CGPoint contentOffset(UIScrollView self) { return self.bounds().origin; }

void setContentOffset(UIScrollView self, CGPoint offset) { self.setBounds({offset, self.bounds().size}); }

// Frame by frame, so that whoever looks at the offset sees it move.
void setContentOffsetAnimated(UIScrollView self, CGPoint offset, BOOL animated) {
  ScrollViewState* owner = &ScrollViewClass::state(self);
  if (!animated || !self.window()) {
    stopFrames(owner);
    self.setContentOffset(offset);
    return;
  }
  const CGPoint from = self.contentOffset();
  const double start = clock::now();
  everyFrame(owner, [self, from, offset, start](double time) {
    const Strong<UIScrollView> alive = retained(self);
    const double elapsed = time - start;
    const double progress = progressAt(easeInOutCurve, elapsed, scrollDuration);
    self.setContentOffset(progress < 1 ? CGPoint{from.x + (offset.x - from.x) * progress,
                                                 from.y + (offset.y - from.y) * progress}
                                       : offset);
    return progress < 1;
  });
}

// Subviews that stay in place while the content moves are put there by layoutSubviews, which each move calls
// for.
void setBounds(UIScrollView self, CGRect bounds) {
  const CGPoint old = self.bounds().origin;
  ScrollViewClass::super<&UIView::setBounds>(self, bounds);
  if (!(self.bounds().origin == old)) self.setNeedsLayout();
}

Strong<UIView> initWithFrame(UIScrollView self, CGRect frame) {
  auto made = ScrollViewClass::super<&UIView::initWithFrame>(self, frame);
  made->setClipsToBounds(YES);
  return made;
}

}  // namespace

void defineScrollView() {
  using bridge::method;
  ScrollViewClass::define<UIView>(
      method<&UIView::initWithFrame, initWithFrame>(), method<&UIView::setBounds, setBounds>(),
      method<&UIScrollView::contentOffset, contentOffset>(),
      method<&UIScrollView::setContentOffset, setContentOffset>(),
      method<&UIScrollView::setContentOffset_animated, setContentOffsetAnimated>(),
      ScrollViewClass::property<&UIScrollView::contentSize, &UIScrollView::setContentSize,
                                &ScrollViewState::contentSize>(),
      ScrollViewClass::property<&UIScrollView::contentInset, &UIScrollView::setContentInset,
                                &ScrollViewState::contentInset>(),
      ScrollViewClass::property<&UIScrollView::isPagingEnabled, &UIScrollView::setPagingEnabled,
                                &ScrollViewState::pagingEnabled>());
}

}  // namespace sim::uikit
