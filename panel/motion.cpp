// How the panel moves: in and out by springs, to its header and back, and under a finger; and how it fades.
#include "panel/popup_state.hpp"
#include "platform/coregraphics/affine_transform.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/application.hpp"

namespace tilo::panel {
namespace {

using bridge::Block;

constexpr double arrival = 0.4, departure = 0.7, toggling = 0.4;  // seconds
constexpr CGFloat damping = 0.7;
constexpr CGFloat belowWindow = 370;                           // points from the edge to the card's centre
constexpr CGFloat collapsedHeight = 40, expandedHeight = 390;  // points
// Just short of a half turn, so that the glyph turns the same way round every time.
constexpr CGFloat almostHalfTurn = static_cast<CGFloat>(3.1384510609362035);

UIWindow keyWindow() { return UIApplication::sharedApplication().keyWindow(); }

CGFloat centerBelow(UIWindow window) {
  CGRect bounds = window.bounds();
  return bounds.origin.y + bounds.size.height + belowWindow;
}

void spring(double duration, const Block<void()>& animations, const Block<void(BOOL)>& completion) {
  UIView::
      animateWithDuration_delay_usingSpringWithDamping_initialSpringVelocity_options_animations_completion(
          duration, 0, damping, 0, 0, animations, completion);
}

}  // namespace

void fadeTo(RQPopupView self, CGFloat alpha, double seconds) {
  UIView::animateWithDuration_animations(
      seconds, Block<void()>([self = bridge::retained(self), alpha] { self->alpha.set(alpha); }));
}

void show(RQPopupView self, bridge::Object) {
  UIWindow window = keyWindow();
  self.center.set({window.center().x, centerBelow(window)});
  window.addSubview(self);
  spring(arrival, [self = bridge::retained(self)] { self->center.set(keyWindow().center()); }, [](BOOL) {});
}

void slideOut(RQPopupView self, const Block<void(BOOL)>& gone) {
  spring(
      departure,
      [self = bridge::retained(self)] { self->center.set({self->center().x, centerBelow(keyWindow())}); },
      gone);
}

void hide(RQPopupView self) {
  slideOut(self, [self = bridge::retained(self)](BOOL) {
    NSNotificationCenter center = NSNotificationCenter::defaultCenter();
    center.removeObserver_name_object(self.get(), "slider_buttons_pressed"_ns, {});
    center.postNotificationName_object("PopupViewDidDisappearNotification"_ns, self.get());
    self->removeFromSuperview();
  });
}

void toggleHeight(RQPopupView self) {
  spring(
      toggling,
      [self = bridge::retained(self)] {
        CGRect frame = self->frame();
        bool expanded = frame.size.height != collapsedHeight;
        frame.size.height = expanded ? collapsedHeight : expandedHeight;
        self->toggleButton().transform.set(expanded ? CGAffineTransformMakeRotation(almostHalfTurn)
                                                    : identityTransform);
        self->frame.set(frame);
      },
      [](BOOL) {});
}

void handlePanGesture(RQPopupView, UIPanGestureRecognizer recognizer) {
  UIView view = recognizer.view();
  CGPoint moved = recognizer.translationInView(view), center = view.center();
  view.center.set({center.x + moved.x, center.y + moved.y});
  recognizer.setTranslation_inView({0, 0}, view);
}

// A touch on a slider is the slider's, and may still turn the page; any other may drag the card as well.
UIView hitTest(RQPopupView self, CGPoint point, UIEvent event) {
  UIView hit = Popup::super<&UIView::hitTest_withEvent>(self, point, event);
  bool onSlider = hit == self.sideSlider() || hit == self.vertSlider() || hit == self.topSlider() ||
                  hit == self.horSlider();
  self.scrollView().scrollEnabled.set(YES);
  self.pan().enabled.set(!onSlider);
  return hit;
}

}  // namespace tilo::panel
