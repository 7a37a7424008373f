// The geometry engine. Stored spacing values are made for the 4-inch screen: 568 x 320 points at scale 2.
#include "startup/geometry.hpp"

#include <cstdint>

#include "bridge/define.hpp"
#include "platform/springboard/dock.hpp"
#include "platform/springboard/icon.hpp"
#include "platform/uikit/device.hpp"
#include "platform/uikit/screen.hpp"
#include "settings/configuration_manager.hpp"
#include "startup/shared_state.hpp"

constinit CGFloat framing[4] = {};

int iconGridCalc(id key, id listView, int systemValue) {
  using namespace tilo;
  NSString which = bridge::as<NSString>(key);
  bool stored = static_cast<bool>(rootObj->objectForKey(which));
  ConfigurationManager manager = ConfigurationManager::sharedManager();
  int count = which.isEqualToString("rows"_ns) ? manager.rows() : manager.columns();
  bool wanted = setting("icons"_ns).boolValue() && setting("enabled"_ns).boolValue() && stored;
  auto list = bridge::as<NSObject>(listView);
  if (wanted && !bridge::isKindOf<SBDockIconListView>(list) && !bridge::isKindOf<SBFolderIconListView>(list))
    return count;
  return systemValue - 1;
}

namespace tilo {

constinit CGRect screenRect{};
constinit CGFloat screenWidth = 0, screenHeight = 0;
constinit CGRect screenNativeRect{};
constinit CGFloat screenNativeWidth = 0, screenNativeHeight = 0;
constinit CGFloat screenScale = 0;
constinit CGFloat iPadAdjustFactorH = 0, iPadAdjustFactorW = 0;
constinit CGSize iconSize{};
constinit const CGFloat addFactor = 20;
constinit const CGFloat dockHeight = 120;
constinit int numOfPages = 1;

namespace {

constexpr NSInteger portrait = 1;

// At and below the 4-inch screen's pixels, and on 3x screens, stored values are used as they are.
constexpr CGFloat referenceNativeHeight = 1136, referenceNativeWidth = 640;
constexpr CGFloat unscaledScale = 3;

constexpr CGFloat phoneStretch = CGFloat(1.4);
constexpr CGFloat referenceRows = 5, referenceColumns = 4;

void obtainValues(value) {
  framing[verticalPadding] = setting("vertIconPadding"_ns).floatValue();
  framing[horizontalPadding] = setting("horiIconPadding"_ns).floatValue();
  framing[sideInset] = setting("sideIconInset"_ns).floatValue();
  framing[topInset] = setting("topIconInset"_ns).floatValue();
}

CGFloat asLength(NSUInteger count) { return static_cast<CGFloat>(static_cast<uint32_t>(count)); }

}  // namespace

void defineValue() {
  bridge::Implementation<value>::define<NSObject>(bridge::method<&value::obtainValues, obtainValues>());
}

void getScreenSizes() {
  UIScreen screen = UIScreen::mainScreen();
  screenRect = screen.bounds();
  screenWidth = screenRect.size.width;
  screenHeight = screenRect.size.height;
  screenNativeRect = screen.nativeBounds();
  screenNativeWidth = screenNativeRect.size.width;
  screenNativeHeight = screenNativeRect.size.height;
  screenScale = screen.scale();
  iPadAdjustFactorH = screenHeight * 2 / 568;
  iPadAdjustFactorW = screenWidth * 2 / 320;
  iconSize = SBIconView::defaultIconImageSize();
}

int getDeviceType() { return static_cast<int>(UIDevice::currentDevice().userInterfaceIdiom()); }

CGFloat adjustHeight(CGFloat spacing, CGFloat extra) {
  if (screenNativeHeight <= referenceNativeHeight) return spacing;
  if (screenScale == unscaledScale) return spacing;
  if (getDeviceType() == UIUserInterfaceIdiomPad) return iPadAdjustFactorH * spacing + (addFactor + extra);
  CGFloat rows = asLength(SBIconListView::iconRowsForInterfaceOrientation(portrait));
  return ((spacing * (screenNativeHeight / referenceNativeHeight)) * phoneStretch) * (referenceRows / rows) +
         extra;
}

CGFloat adjustWidth(CGFloat spacing, CGFloat extra) {
  if (screenNativeWidth <= referenceNativeWidth) return spacing;
  if (screenScale == unscaledScale) return spacing;
  if (getDeviceType() == UIUserInterfaceIdiomPad) return iPadAdjustFactorW * spacing + (addFactor + extra);
  CGFloat columns = asLength(SBIconListView::iconColumnsForInterfaceOrientation(portrait));
  // Unlike a height, a phone's width gets no extra.
  return ((spacing * (screenNativeWidth / referenceNativeWidth)) * phoneStretch) *
         (referenceColumns / columns);
}

}  // namespace tilo
