// The replacements of SBIconController's methods.
#include "hooks/icon_controller.hpp"

#include <cstdint>

#include "bridge/replace.hpp"
#include "platform/springboard/lock_screen.hpp"
#include "platform/uikit/device.hpp"
#include "startup/geometry.hpp"
#include "startup/relayout.hpp"
#include "startup/shared_state.hpp"

namespace tilo::hooks {
namespace {

using bridge::original;

constexpr int32_t portrait = 1;
constexpr CGFloat referenceHeight = 568, referenceWidth = 320;  // points of the 4-inch screen

// The layouts that keep their horizontal factor when a tablet turns to landscape.
bool keepsHorizontalFactor(NSInteger preset) {
  return preset == -2 || preset == 1 || preset == 8 || preset == 9;
}

// The screen's size is the one measured at start, so in landscape width and height trade places; the dock
// takes its share of the reference height there.
void scaleForLandscape(NSInteger preset) {
  iPadAdjustFactorH = (screenWidth * 2) / (referenceHeight + dockHeight);
  if (!keepsHorizontalFactor(preset)) iPadAdjustFactorW = (screenHeight * 2) / referenceWidth;
}

void scaleForPortrait() {
  iPadAdjustFactorH = (screenHeight + screenHeight) / referenceHeight;
  iPadAdjustFactorW = (screenWidth + screenWidth) / referenceWidth;
}

}  // namespace

bridge::Strong<NSObject> initController(SBIconController self) {
  getScreenSizes();
  return original<initController>(self);
}

// The first start shows no notice; the panel has its own.
void viewDidAppear(SBIconController self, BOOL animated) { original<viewDidAppear>(self, animated); }

void didRotateFromInterfaceOrientation(SBIconController self, NSInteger previous) {
  original<didRotateFromInterfaceOrientation>(self, previous);
  if (getDeviceType() != UIUserInterfaceIdiomPad) return;
  SBLockScreenViewController lockScreen = SBLockScreenManager::sharedInstance().lockScreenViewController();
  NSInteger preset = setting("preset"_ns).integerValue();
  if (static_cast<int32_t>(previous) == portrait && !lockScreen.isLockScreenVisible())
    scaleForLandscape(preset);
  else if (!lockScreen.isLockScreenVisible())
    scaleForPortrait();
  else
    return;
  layoutIcons(false);
}

}  // namespace tilo::hooks
