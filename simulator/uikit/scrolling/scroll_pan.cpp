// The recogniser that drags a scroll view.
#include "bridge/define.hpp"
#include "simulator/uikit/gestures/event.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch.hpp"
#include "simulator/uikit/scrolling/scroll_dragging.hpp"

namespace sim::uikit {
namespace {

// Seconds for which content does not hear of a touch that may become a drag.
constexpr double contentDelay = 0.15;

struct ScrollPan : bridge::Face<"UIScrollViewPanGestureRecognizer", UIPanGestureRecognizer> {};
using ScrollPanClass = bridge::Implementation<ScrollPan>;

UIScrollView scrollViewOf(ScrollPan self) { return bridge::as<UIScrollView>(self.view()); }

void touchesBegan(ScrollPan self, NSSet touches, UIEvent event) {
  const UIScrollView view = scrollViewOf(self);
  if (downTouches(self).size() == touches.count()) {
    // A finger that stops the content is none for what it happens to come down on.
    if (fingerDown(view))
      for (const UITouch touch : touchesOf(touches)) stateOf(touch).cancelled = true;
    const UIView touched = bridge::as<UITouch>(touches.anyObject()).view();
    if (view.delaysContentTouches() && !(touched == view)) {
      self.delaysTouchesBegan.set(YES);
      startTimer(self, contentDelay, [self] { self.delaysTouchesBegan.set(NO); });
    }
  }
  ScrollPanClass::super<&UIGestureRecognizer::touchesBegan_withEvent>(self, touches, event);
}

void reset(ScrollPan self) {
  ScrollPanClass::super<&UIGestureRecognizer::reset>(self);
  self.delaysTouchesBegan.set(NO);
  if (self.view()) fingersGone(scrollViewOf(self));
}

}  // namespace

bridge::Strong<UIPanGestureRecognizer> makeScrollPan(UIScrollView view) {
  return bridge::make<ScrollPan, &UIGestureRecognizer::initWithTarget_action>(
      view, bridge::Descriptor<&ScrollViewPan::handlePan>::selector());
}

void defineScrollPan() {
  using bridge::method;
  ScrollPanClass::define<UIPanGestureRecognizer>(
      method<&UIGestureRecognizer::touchesBegan_withEvent, touchesBegan>(),
      method<&UIGestureRecognizer::reset, reset>());
}

}  // namespace sim::uikit
