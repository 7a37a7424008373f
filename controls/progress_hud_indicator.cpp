// The indicator, by mode.
#include "controls/progress_hud_parts.hpp"
#include "platform/uikit/activity_indicator.hpp"

namespace tilo::hud {
namespace {

using bridge::Strong;

UIView indicatorOf(RQProgressHUD self) { return HUD::state(self).indicator; }

void replaceIndicator(RQProgressHUD self, UIView view) {
  Strong<UIView>& indicator = HUD::state(self).indicator;
  if (indicator) indicator->removeFromSuperview();
  indicator = retained(view);
  if (view) self.addSubview(view);
}

void useSpinner(RQProgressHUD self) {
  if (!bridge::isKindOf<UIActivityIndicatorView>(indicatorOf(self)))
    replaceIndicator(
        self, bridge::make<UIActivityIndicatorView, &UIActivityIndicatorView::initWithActivityIndicatorStyle>(
                  UIActivityIndicatorViewStyleWhiteLarge)
                  .autoreleased());
  bridge::as<UIActivityIndicatorView>(indicatorOf(self)).startAnimating();
}

template <class T>
void useProgressView(RQProgressHUD self) {
  if (!bridge::isKindOf<T>(indicatorOf(self)))
    replaceIndicator(self, bridge::make<T, &NSObject::init>().autoreleased());
  passProgress(self);
}

void useRoundView(RQProgressHUD self, BOOL annular) {
  useProgressView<RQRoundProgressView>(self);
  bridge::as<RQRoundProgressView>(indicatorOf(self)).annular.set(annular);
}

}  // namespace

void updateIndicator(RQProgressHUD self) {
  switch (self.mode()) {
    case RQProgressHUDModeIndeterminate:
      return useSpinner(self);
    case RQProgressHUDModeDeterminate:
      return useRoundView(self, NO);
    case RQProgressHUDModeAnnularDeterminate:
      return useRoundView(self, YES);
    case RQProgressHUDModeDeterminateHorizontalBar:
      return useProgressView<RQBarProgressView>(self);
    case RQProgressHUDModeCustomView:
      if (!(self.customView() == indicatorOf(self))) replaceIndicator(self, self.customView());
      return;
    case RQProgressHUDModeText:
      return replaceIndicator(self, {});
    default:  // a mode that there is not: what shows stays
      return;
  }
}

void passProgress(RQProgressHUD self) {
  UIView indicator = indicatorOf(self);
  if (indicator.respondsToSelector(bridge::selector<"setProgress:">()))
    bridge::as<RQRoundProgressView>(indicator).progress.set(self.progress());
}

}  // namespace tilo::hud
