// What the screen, SpringBoard and the settings say, put into the numbers of core.hpp.
#include "startup/grid/geometry.hpp"

#include "bridge/define.hpp"
#include "platform/springboard/dock.hpp"
#include "platform/springboard/icon.hpp"
#include "platform/uikit/device.hpp"
#include "platform/uikit/screen.hpp"
#include "settings/store/configuration_manager.hpp"
#include "settings/store/values.hpp"
#include "startup/grid/core.hpp"

constinit CGFloat framing[4] = {};

int iconGridCalc(id key, id listView, int systemValue) {
  using namespace tilo;
  NSString which = bridge::as<NSString>(key);
  bool stored = static_cast<bool>(numberIn(settings().object(which)));
  ConfigurationManager manager = ConfigurationManager::sharedManager();
  const bool ofRows = which == NSString(keys::rows) || which.isEqualToString(keys::rows);
  int count = ofRows ? manager.rows() : manager.columns();
  bool wanted = settings().flag(keys::icons) && settings().flag(keys::enabled) && stored;
  auto list = bridge::as<NSObject>(listView);
  if (wanted && !isDockOrFolder(list)) return count;
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
constinit const CGFloat addFactor = grid::tabletExtra;
constinit const CGFloat dockHeight = grid::landscapeDock;
constinit int numOfPages = 1;

namespace {

constexpr NSInteger portrait = 1;

void obtainValues(value) {
  framing[verticalPadding] = settings().number(keys::vertIconPadding);
  framing[horizontalPadding] = settings().number(keys::horiIconPadding);
  framing[sideInset] = settings().number(keys::sideIconInset);
  framing[topInset] = settings().number(keys::topIconInset);
}

// One axis of the main screen, as the core asks for it.
struct ScreenAxis {
  CGFloat native, scale, tabletFactor;
  NSUInteger (*systemCount)();

  static bool isTablet() { return getDeviceType() == UIUserInterfaceIdiomPad; }
  CGFloat count() const { return grid::asLength(systemCount()); }
};

}  // namespace

// Both in one walk: every answer asks.
bool isDockOrFolder(bridge::Object list) {
  const Class dock = bridge::classNamed<SBDockIconListView>(),
              folder = bridge::classNamed<SBFolderIconListView>();
  for (Class at = bridge::classOf(list.raw); at; at = class_getSuperclass(at))
    if (at == dock || at == folder) return true;
  return false;
}

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
  useFactors(grid::portraitFactors(screenWidth, screenHeight));
  iconSize = SBIconView::defaultIconImageSize();
}

int getDeviceType() { return static_cast<int>(UIDevice::currentDevice().userInterfaceIdiom()); }

void useFactors(grid::Factors factors) {
  iPadAdjustFactorH = factors.height;
  iPadAdjustFactorW = factors.width;
}

CGFloat adjustHeight(CGFloat spacing, CGFloat extra) {
  const ScreenAxis screen{screenNativeHeight, screenScale, iPadAdjustFactorH,
                          [] { return SBIconListView::iconRowsForInterfaceOrientation(portrait); }};
  return grid::scaled(grid::heights, screen, spacing, extra);
}

CGFloat adjustWidth(CGFloat spacing, CGFloat extra) {
  const ScreenAxis screen{screenNativeWidth, screenScale, iPadAdjustFactorW,
                          [] { return SBIconListView::iconColumnsForInterfaceOrientation(portrait); }};
  return grid::scaled(grid::widths, screen, spacing, extra);
}

}  // namespace tilo
