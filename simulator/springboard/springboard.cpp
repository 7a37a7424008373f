// SpringBoard's windows, in their order, and its life cycle.
#include "simulator/springboard/springboard.hpp"

#include <algorithm>

#include "platform/uikit/screen.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/artwork/app_catalogue.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/dock_icon_list_view.hpp"
#include "simulator/springboard/dock_view.hpp"
#include "simulator/springboard/icon.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/icon_image_view.hpp"
#include "simulator/springboard/icon_label.hpp"
#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/springboard/lock_screen.hpp"
#include "simulator/springboard/orientation.hpp"
#include "simulator/springboard/panel_parts.hpp"
#include "simulator/springboard/relaunch.hpp"
#include "simulator/springboard/status_bar.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/springboard/wallpaper_view.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/base/device.hpp"
#include "simulator/uikit/drawing/rendering.hpp"

namespace sim::springboard {
namespace {

constexpr CGFloat wallpaperLevel = -1;
constexpr int iconsInFolder = 5;
constexpr NSInteger mostDockIcons = 20;

struct Windows {
  bridge::Strong<UIWindow> wallpaper, home;
};

Windows& windows() {
  static auto& all = *new Windows();
  return all;
}

bridge::Strong<UIWindow> makeWindow() {
  return bridge::make<UIWindow, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
}

// Windows as large as the screen stay so; one of its own height, as the status bar's, keeps it.
void turnWindows(NSInteger to) {
  CGFloat height = UIScreen::mainScreen().bounds().size.height;
  uikit::setInterfaceOrientation(to);
  uikit::setDeviceOrientation(to == UIInterfaceOrientationLandscapeRight ? UIDeviceOrientationLandscapeLeft
                                                                         : UIDeviceOrientationPortrait);
  CGSize size = UIScreen::mainScreen().bounds().size;
  NSArray all = UIApplication::sharedApplication().windows();
  for (NSUInteger i = 0; i < all.count(); ++i) {
    auto window = bridge::as<UIWindow>(all.objectAtIndex(i));
    CGFloat own = window.bounds().size.height;
    window.frame.set({{0, 0}, {size.width, own == height ? size.height : own}});
  }
  turnStatusBar();
  uikit::postDeviceOrientation();
}

// A dock is filled: with what the device's docks usually hold, or, where somebody else says how many that is,
// with that many.
int dockCount() {
  auto maximum = static_cast<NSInteger>(SBDockIconListView::maxIcons());
  if (maximum == stockDock(UIInterfaceOrientationPortrait).maximum) return device().dockIcons;
  return static_cast<int>(std::clamp<NSInteger>(maximum, 0, mostDockIcons));
}

Icons namedIcons(const Contents& contents) {
  const StockGrid& grid = device().portrait;
  int count = contents.icons >= 0 ? contents.icons : contents.pages * grid.rows * grid.columns;
  Icons icons;
  for (int i = 0; i < dockCount(); ++i) icons.dock.push_back(dockAppName(i));
  for (int i = 0; i < count; ++i) icons.home.push_back(appName(i));
  // The first page ends with the folder.
  if (count > 1) icons.home[static_cast<size_t>(std::min(count, grid.rows * grid.columns) - 1)] = folderName;
  for (int i = 0; i < iconsInFolder; ++i) icons.folder.push_back(appName(count + i));
  return icons;
}

}  // namespace

void defineClasses() {
  defineIcon();
  defineIconImageView();
  defineIconLabel();
  defineIconView();
  defineIconListView();
  defineDockIconListView();
  defineDockView();
  defineIconController();
  defineLockScreen();
  defineApplications();
  defineChevron();
  defineCloseBox();
  defineRelaunch();
}

void start(const Contents& contents) {
  bridge::Pool pool;
  windows().wallpaper = makeWindow();
  windows().wallpaper->windowLevel.set(wallpaperLevel);
  windows().wallpaper->addSubview(makeWallpaperView(UIScreen::mainScreen().bounds().size).get());
  windows().wallpaper->hidden.set(NO);

  SBIconController controller = SBIconController::sharedInstance();
  windows().home = makeWindow();
  controller.view();  // loads it
  windows().home->rootViewController.set(controller);
  fillHomeScreen(namedIcons(contents), contents.pages);
  windows().home->makeKeyAndVisible();
  showStatusBar();
  homeScreen().dockView->setBackgroundAlpha(1);
  uikit::layoutPass();
}

Orientation orientation() { return asOrientation(currentOrientation()); }

bool beginRotation(Orientation to) {
  if (!homeScreenTurns() || to == orientation()) return false;
  bridge::Pool pool;
  tellWillRotate(asInterfaceOrientation(to), rotationDuration);
  UIView::animateWithDuration_animations(rotationDuration, bridge::Block<void()>([&] {
                                           turnWindows(asInterfaceOrientation(to));
                                           tellWillAnimateRotation(asInterfaceOrientation(to),
                                                                   rotationDuration);
                                           uikit::layoutPass();
                                         }));
  return true;
}

void finishRotation(Orientation from) {
  bridge::Pool pool;
  tellDidRotate(asInterfaceOrientation(from));
}

}  // namespace sim::springboard
