// SBLockScreenManager and the controller of its screen.
#include "platform/springboard/lock_screen.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/font.hpp"
#include "platform/uikit/label.hpp"
#include "platform/uikit/screen.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/springboard/lock_screen.hpp"
#include "simulator/springboard/wallpaper_view.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "simulator/uikit/views/first_responder.hpp"

namespace sim::springboard {
namespace {

constexpr CGFloat windowLevel = 900;  // below the status bar
constexpr CGFloat clockFontSize = 76, clockTop = 70, clockHeight = 92;

struct ControllerState {
  bool visible = false;
  bridge::Strong<UIWindow> window;
};

using Controller = bridge::Implementation<SBLockScreenViewController, ControllerState>;
using Manager = bridge::Implementation<SBLockScreenManager>;

BOOL isVisible(SBLockScreenViewController self) { return Controller::state(self).visible; }

void loadView(SBLockScreenViewController self) {
  auto view = makeWallpaperView(UIScreen::mainScreen().bounds().size);
  auto clock = bridge::make<UILabel, &UIView::initWithFrame>(
      CGRect{{0, clockTop}, {view->bounds().size.width, clockHeight}});
  clock->setText("9:41"_ns);
  clock->setFont(UIFont::systemFontOfSize(clockFontSize));
  clock->setTextColor(UIColor::whiteColor());
  clock->setTextAlignment(NSTextAlignmentCenter);
  clock->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
  view->addSubview(clock);
  self.setView(view);
}

SBLockScreenManager sharedInstance(Class) {
  static id shared = bridge::make<SBLockScreenManager, &NSObject::init>().leak();
  return bridge::as<SBLockScreenManager>(shared);
}

SBLockScreenViewController lockScreenViewController(SBLockScreenManager) {
  static id controller = bridge::make<SBLockScreenViewController, &NSObject::init>().leak();
  return bridge::as<SBLockScreenViewController>(controller);
}

void show(bool visible) {
  auto controller = SBLockScreenManager::sharedInstance().lockScreenViewController();
  auto& state = Controller::state(controller);
  if (!state.window) {
    state.window = bridge::make<UIWindow, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
    state.window->setWindowLevel(windowLevel);
    state.window->setRootViewController(controller);
  }
  state.visible = visible;
  state.window->setHidden(!visible);
}

}  // namespace

void lock() {
  uikit::cancelFingers();
  uikit::resignForcibly(uikit::firstResponder());
  show(true);
}
void unlock() { show(false); }

void defineLockScreen() {
  using bridge::method;
  Controller::define<UIViewController>(method<&SBLockScreenViewController::isLockScreenVisible, isVisible>(),
                                       method<&UIViewController::loadView, loadView>());
  Manager::define<NSObject>(
      method<&SBLockScreenManager::sharedInstance, sharedInstance>(),
      method<&SBLockScreenManager::lockScreenViewController, lockScreenViewController>());
}

}  // namespace sim::springboard
