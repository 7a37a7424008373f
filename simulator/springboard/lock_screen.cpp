// SBLockScreenManager and the controller of its screen.
#include "platform/springboard/lock_screen.hpp"

#include "platform/uikit/color.hpp"
#include "platform/uikit/font.hpp"
#include "platform/uikit/label.hpp"
#include "platform/uikit/screen.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/springboard/lock_screen.hpp"
#include "simulator/springboard/system_class.hpp"
#include "simulator/springboard/wallpaper_view.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "simulator/uikit/views/first_responder.hpp"

namespace sim::springboard {
namespace {

constexpr CGFloat windowLevel = 900;  // below the status bar
constexpr CGFloat clockFontSize = 76, clockTop = 70, clockHeight = 92;

// One of two controllers shows the screen; what they have in common they inherit.
struct SBAlert : bridge::Face<"SBAlert", UIViewController> {};
struct SBLockScreenViewControllerBase : bridge::Face<"SBLockScreenViewControllerBase", SBAlert> {};
struct SBDashBoardViewController : bridge::Face<"SBDashBoardViewController", SBLockScreenViewControllerBase> {
};

// What else the manager answers.
struct LockState : bridge::Face<"SBLockScreenManager", SBLockScreenManager> {
  MESSAGE Method<"isUILocked", BOOL()> isUILocked;
};

using Alert = bridge::Implementation<SBAlert>;
using Base = bridge::Implementation<SBLockScreenViewControllerBase>;
using Controller = bridge::Implementation<SBLockScreenViewController>;
using DashBoard = bridge::Implementation<SBDashBoardViewController>;
using Manager = bridge::Implementation<SBLockScreenManager>;

struct Screen {
  bool visible = false;
  bridge::Strong<UIWindow> window;
};

Screen& screen() {
  static auto& only = *new Screen();
  return only;
}

BOOL isVisible(UIViewController) { return screen().visible; }
BOOL isUILocked(SBLockScreenManager) { return screen().visible; }

void loadView(UIViewController self) {
  auto view = makeWallpaperView(UIScreen::mainScreen().bounds().size);
  auto clock = bridge::make<UILabel, &UIView::initWithFrame>(
      CGRect{{0, clockTop}, {view->bounds().size.width, clockHeight}});
  clock->text.set("9:41"_ns);
  clock->font.set(UIFont::systemFontOfSize(clockFontSize));
  clock->textColor.set(UIColor::whiteColor());
  clock->textAlignment.set(NSTextAlignmentCenter);
  clock->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  view->addSubview(clock);
  self.view.set(view);
}

SBLockScreenManager sharedInstance(Class) {
  static id shared = bridge::make<SBLockScreenManager, &NSObject::init>().leak();
  return bridge::as<SBLockScreenManager>(shared);
}

SBLockScreenViewController lockScreenViewController(SBLockScreenManager) {
  static const id controller = superclassOf("SBDashBoardViewController")
                                   ? bridge::make<SBDashBoardViewController, &NSObject::init>().leak()
                                   : bridge::make<SBLockScreenViewController, &NSObject::init>().leak();
  return bridge::as<SBLockScreenViewController>(controller);
}

void show(bool visible) {
  Screen& shown = screen();
  if (!shown.window) {
    shown.window = bridge::make<UIWindow, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
    shown.window->windowLevel.set(windowLevel);
    shown.window->rootViewController.set(SBLockScreenManager::sharedInstance().lockScreenViewController());
  }
  shown.visible = visible;
  shown.window->hidden.set(!visible);
}

}  // namespace

void lock() {
  uikit::cancelFingers();
  uikit::resignForcibly(uikit::firstResponder());
  show(true);
}
void unlock() { show(false); }
bool isLocked() { return screen().visible; }

void defineLockScreen() {
  using Face = SBLockScreenViewController;
  defineSystemClass<Alert>();
  defineSystemClass<Base>(own<&Face::isLockScreenVisible, isVisible>());
  defineSystemClass<Controller>(own<&Face::isLockScreenVisible, isVisible>(),
                                own<&UIViewController::loadView, loadView>());
  defineSystemClass<DashBoard>(own<&Face::isLockScreenVisible, isVisible>(),
                               own<&UIViewController::loadView, loadView>());
  defineSystemClass<Manager>(own<&SBLockScreenManager::sharedInstance, sharedInstance>(),
                             own<&SBLockScreenManager::lockScreenViewController, lockScreenViewController>(),
                             own<&SBLockScreenManager::isLockScreenVisible, isUILocked>(),
                             own<&LockState::isUILocked, isUILocked>());
}

}  // namespace sim::springboard
