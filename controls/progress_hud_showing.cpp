// Showing and hiding the box, at once, animated or later.
#include "controls/progress_hud_parts.hpp"
#include "platform/foundation/thread.hpp"

namespace tilo::hud {
namespace {

using bridge::Strong;

constexpr double animationTime = 0.30;  // seconds
constexpr CGFloat small = 0.5f, large = 1.5f;
// Not quite gone: `done` makes it so.
constexpr CGFloat lastAlpha = 0.02f;

CGAffineTransform scaled(const CGAffineTransform& transform, CGFloat scale) {
  return {transform.a * scale, transform.b * scale, transform.c * scale,
          transform.d * scale, transform.tx,        transform.ty};
}

bool zooms(const HUDState& state) {
  return state.animationType == RQProgressHUDAnimationZoomOut ||
         state.animationType == RQProgressHUDAnimationZoomIn;
}

CGAffineTransform beforeShowing(const HUDState& state) {
  const bool in = state.animationType == RQProgressHUDAnimationZoomIn;
  return scaled(state.rotationTransform, in ? small : large);
}

CGAffineTransform afterHiding(const HUDState& state) {
  const bool in = state.animationType == RQProgressHUDAnimationZoomIn;
  return scaled(state.rotationTransform, in ? large : small);
}

double secondsSince(NSDate date) { return -date.timeIntervalSinceNow(); }

Strong<NSTimer> timer(RQProgressHUD self, double seconds, SEL action) {
  return retained(NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(seconds, self,
                                                                                           action, {}, NO));
}

void stop(Strong<NSTimer>& timer) {
  if (timer) timer->invalidate();
  timer.clear();
}

// From the size that an earlier hiding may have left.
void showNow(RQProgressHUD self) {
  HUDState& state = HUD::state(self);
  const bool animated = state.useAnimation;
  self.transform.set(animated && zooms(state) ? beforeShowing(state) : state.rotationTransform);
  state.isFinished = NO;
  state.showStarted = retained(NSDate::date());
  if (!animated) return self.alpha.set(1);
  UIView::animateWithDuration_animations(animationTime, bridge::Block<void()>([self, &state] {
                                           self.alpha.set(1);
                                           self.transform.set(state.rotationTransform);
                                         }));
}

// Properties that nobody observes may have changed as well.
void startShowing(RQProgressHUD self) {
  self.setNeedsLayout();
  self.setNeedsDisplay();
  showNow(self);
}

void hideNow(RQProgressHUD self) {
  HUDState& state = HUD::state(self);
  const Strong<RQProgressHUD> alive = retained(self);
  const Strong<NSDate> started = std::exchange(state.showStarted, {});
  if (state.useAnimation && started) {
    UIView::animateWithDuration_animations_completion(
        animationTime, bridge::Block<void()>([self, &state] {
          if (zooms(state)) self.transform.set(afterHiding(state));
          self.alpha.set(lastAlpha);
        }),
        bridge::Block<void(BOOL)>([alive](BOOL) { bridge::as<Own>(alive.get()).done(); }));
  } else {
    bridge::as<Own>(self).done();
  }
}

}  // namespace

void show(RQProgressHUD self, BOOL animated) {
  HUDState& state = HUD::state(self);
  state.useAnimation = animated;
  if (self.graceTime() > 0) {
    if (!state.graceTimer)
      state.graceTimer =
          timer(self, static_cast<double>(self.graceTime()), bridge::selector<"handleGraceTimer:">());
    return;
  }
  stop(state.graceTimer);
  startShowing(self);
}

// Whoever asked for it may have finished meanwhile.
void handleGraceTimer(RQProgressHUD self, NSTimer) {
  HUD::state(self).graceTimer.clear();
  if (self.taskInProgress()) startShowing(self);
}

void hide(RQProgressHUD self, BOOL animated) {
  HUDState& state = HUD::state(self);
  state.useAnimation = animated;
  stop(state.minShowTimer);
  const double least = static_cast<double>(self.minShowTime());
  const double shown = least > 0 && state.showStarted ? secondsSince(state.showStarted) : least;
  if (shown < least)
    state.minShowTimer = timer(self, least - shown, bridge::selector<"handleMinShowTimer:">());
  else
    hideNow(self);
}

void handleMinShowTimer(RQProgressHUD self, NSTimer) { hideNow(self); }

void hideLater(RQProgressHUD self, BOOL animated, double delay) {
  bridge::as<NSDelayedPerforming>(self).performSelector_withObject_afterDelay(
      bridge::selector<"hideDelayed:">(), NSNumber::numberWithBool(animated), delay);
}

void hideDelayed(RQProgressHUD self, NSNumber animated) { self.hide(animated.boolValue()); }

void done(RQProgressHUD self) {
  const Strong<RQProgressHUD> alive = retained(self);
  HUDState& state = HUD::state(self);
  NSDelayedPerforming::cancelPreviousPerformRequestsWithTarget(self);
  state.isFinished = YES;
  self.alpha.set(0);
  if (self.removeFromSuperViewOnHide()) self.removeFromSuperview();
  const bridge::Block<void()> completion(self.completionBlock());
  self.completionBlock.set({});
  if (completion) completion();
  RQProgressHUDDelegate delegate = self.delegate();
  if (bridge::as<NSObject>(delegate).respondsToSelector(bridge::selector<"hudWasHidden:">()))
    delegate.hudWasHidden(self);
}

}  // namespace tilo::hud
