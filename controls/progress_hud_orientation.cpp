// Turning with the device.
#include "controls/progress_hud_parts.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/device.hpp"

namespace tilo::hud {
namespace {

// Clockwise turns.
constexpr CGAffineTransform quarter{0, 1, -1, 0, 0, 0};
constexpr CGAffineTransform threeQuarters{0, -1, 1, 0, 0, 0};
constexpr CGAffineTransform half{-1, 0, 0, -1, 0, 0};

CGAffineTransform turnFor(NSInteger orientation) {
  switch (orientation) {
    case UIInterfaceOrientationPortraitUpsideDown:
      return half;
    case UIInterfaceOrientationLandscapeLeft:
      return threeQuarters;
    case UIInterfaceOrientationLandscapeRight:
      return quarter;
    default:
      return identityTransform;
  }
}

// A window stands still while the interface turns; any other view has been turned with it.
void turn(RQProgressHUD self) {
  CGAffineTransform& rotation = HUD::state(self).rotationTransform;
  const bool inWindow = bridge::isKindOf<UIWindow>(self.superview());
  const CGAffineTransform wanted =
      inWindow ? turnFor(UIApplication::sharedApplication().statusBarOrientation()) : identityTransform;
  if (wanted == rotation) return;
  rotation = wanted;
  self.transform.set(rotation);
}

// Over the whole superview again, whose sides may have changed.
void cover(RQProgressHUD self) {
  const CGRect whole = self.superview().bounds();
  const bool sideways = HUD::state(self).rotationTransform.a == 0;
  const CGSize size = sideways ? CGSize{whole.size.height, whole.size.width} : whole.size;
  self.bounds.set({{0, 0}, size});
  self.center.set({whole.origin.x + whole.size.width / 2, whole.origin.y + whole.size.height / 2});
}

}  // namespace

void listenToOrientation(RQProgressHUD self) {
  HUD::state(self).listening.listener = self;
  NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
      self, bridge::selector<"deviceOrientationDidChange:">(),
      bridge::as<NSString>(UIDeviceOrientationDidChangeNotification), {});
}

void deviceOrientationDidChange(RQProgressHUD self, NSNotification) {
  if (!self.superview()) return;
  turn(self);
  cover(self);
}

void didMoveToSuperview(RQProgressHUD self) {
  if (!self.superview()) return;
  turn(self);
  if (!(HUD::state(self).rotationTransform == identityTransform)) cover(self);
}

}  // namespace tilo::hud
