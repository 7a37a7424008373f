// The card's place and looks.
#include "panel/popup_view.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/color.hpp"

namespace tilo {
namespace {

using Popup = bridge::Implementation<RQPopupView>;

constexpr CGFloat sideGap = 10, bottomGap = 10, height = 300;  // points

// As wide as the window, at its lower edge.
CGRect cardFrame(CGSize window) {
  return {{sideGap, window.height - height - bottomGap}, {window.width - 2 * sideGap, height}};
}

void show(RQPopupView self, bridge::Object) {
  UIWindow window = UIApplication::sharedApplication().keyWindow();
  self.setFrame(cardFrame(window.bounds().size));
  self.setBackgroundColor(UIColor::whiteColor());
  window.addSubview(self);
}

void didHitCancel(RQPopupView self) { self.removeFromSuperview(); }

}  // namespace

void definePopupView() {
  using bridge::method;
  Popup::define<UIView>(method<&RQPopupView::show, show>(),
                        method<&RQPopupView::didHitCancel, didHitCancel>());
}

}  // namespace tilo
