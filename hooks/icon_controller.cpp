// The replacements of SBIconController's methods.
#include "hooks/icon_controller.hpp"

#include <cstdint>

#include "bridge/replace.hpp"
#include "platform/springboard/lock_screen.hpp"
#include "platform/uikit/device.hpp"
#include "settings/store/values.hpp"
#include "startup/grid/geometry.hpp"
#include "startup/grid/relayout.hpp"

namespace tilo::hooks {
namespace {

using bridge::original;

constexpr int32_t portrait = 1;

// The screen's size is the one measured at start, in landscape too.
void scaleForLandscape(NSInteger preset) {
  useFactors(
      grid::landscapeFactors(screenWidth, screenHeight, preset, {iPadAdjustFactorH, iPadAdjustFactorW}));
}

void scaleForPortrait() { useFactors(grid::portraitFactors(screenWidth, screenHeight)); }

// Systems differ in who tells.
bool lockScreenIsVisible() {
  SBLockScreenManager manager = SBLockScreenManager::sharedInstance();
  SBLockScreenViewController controller = manager.lockScreenViewController();
  return controller.isLockScreenVisible.isAnswered() ? controller.isLockScreenVisible.ifAnswered()
                                                     : manager.isLockScreenVisible.ifAnswered();
}

// A tablet's grid is rescaled, unless it turns behind the lock screen.
void rescale(NSInteger previous) {
  if (getDeviceType() != UIUserInterfaceIdiomPad) return;
  NSInteger preset = settings().count(keys::preset);
  if (static_cast<int32_t>(previous) == portrait && !lockScreenIsVisible())
    scaleForLandscape(preset);
  else if (!lockScreenIsVisible())
    scaleForPortrait();
  else
    return;
  layoutIcons(false);
}

}  // namespace

bridge::Strong<NSObject> initController(SBIconController self) {
  getScreenSizes();
  return original<initController>(self);
}

bridge::Strong<UIViewController> initControllerWithNib(SBIconController self, NSString name,
                                                       NSBundle bundle) {
  getScreenSizes();
  return original<initControllerWithNib>(self, name, bundle);
}

// The first start shows no notice; the panel has its own.
void viewDidAppear(SBIconController self, BOOL animated) { original<viewDidAppear>(self, animated); }

void didRotate(SBIconController self, NSInteger previous) {
  original<didRotate>(self, previous);
  rescale(previous);
}

void didRotateInternally(SBIconController self, NSInteger previous) {
  original<didRotateInternally>(self, previous);
  rescale(previous);
}

}  // namespace tilo::hooks
