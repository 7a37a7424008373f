// UIScrollView.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "simulator/physics/scroll_motion.hpp"
#include "simulator/runtime/weak.hpp"

namespace sim::uikit {

struct ScrollViewState {
  CGSize contentSize{};
  UIEdgeInsets contentInset{};
  BOOL pagingEnabled = NO;
  BOOL bounces = YES, alwaysBounceHorizontal = NO, alwaysBounceVertical = NO;
  BOOL delaysContentTouches = YES, canCancelContentTouches = YES;
  // Kept for those who ask; indicators are not drawn.
  BOOL showsHorizontalIndicator = YES, showsVerticalIndicator = YES;
  CGFloat decelerationRate = UIScrollViewDecelerationRateNormal;
  Weak delegate;
  bridge::Strong<UIPanGestureRecognizer> pan;

  bool tracking = false, dragging = false, decelerating = false;
  bool caught = false;  // a finger came down on it while it moved
  CGPoint dragStart{};  // the offset that the translation counts from, beyond the range as well
  CGPoint pageStart{};  // the offset when the finger came down

  ScrollViewState() = default;
  ~ScrollViewState();
  ScrollViewState(const ScrollViewState&) = delete;
  ScrollViewState& operator=(const ScrollViewState&) = delete;
};

ScrollViewState& stateOf(UIScrollView view);

/** Where the offset may rest along each axis. */
physics::ScrollRange horizontalRange(UIScrollView view);
physics::ScrollRange verticalRange(UIScrollView view);
bool scrollsHorizontally(UIScrollView view);
bool scrollsVertically(UIScrollView view);

/** Stops whatever moves the offset. */
void stopScrolling(UIScrollView view);

/** The delegate, where it implements that method; nil otherwise. */
bridge::Object delegateFor(UIScrollView view, SEL method);
/** Tells the delegate, where it wants to hear. */
template <auto Member>
void tellDelegate(UIScrollView view, auto... arguments) {
  using D = bridge::Descriptor<Member>;
  if (const bridge::Object delegate = delegateFor(view, D::selector()))
    D::send(delegate.raw, view, arguments...);
}

}  // namespace sim::uikit
