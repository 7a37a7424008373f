// UIWindow.
#include "simulator/uikit/views/window.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

// The windows, in the order in which they came to the front. They are not retained: each takes itself out.
std::vector<UIWindow>& known() {
  static auto& list = *new std::vector<UIWindow>();
  return list;
}

UIWindow& key() {
  static UIWindow window;
  return window;
}

struct WindowState {
  UIWindow self;
  CGFloat level = UIWindowLevelNormal;
  Strong<UIViewController> rootViewController;

  ~WindowState() {
    std::erase(known(), self);
    if (key() == self) key() = {};
  }
};

using WindowClass = bridge::Implementation<UIWindow, WindowState>;

// The controller's view comes in with the window's first showing, so that it is not loaded before.
void showRootView(UIWindow self) {
  const Strong<UIViewController>& controller = WindowClass::state(self).rootViewController;
  if (!controller || self.hidden()) return;
  const UIView view = controller->view();
  if (view.superview() == self) return;
  view.frame.set(self.bounds());
  self.insertSubview_atIndex(view, 0);
}

Strong<UIView> initWithFrame(UIWindow self, CGRect frame) {
  auto made = WindowClass::super<&UIView::initWithFrame>(self, frame);
  const UIWindow window = bridge::as<UIWindow>(made.get());
  layerOf(window).hidden = true;
  WindowClass::state(window).self = window;
  known().push_back(window);
  return made;
}

void setHidden(UIWindow self, BOOL hidden) {
  const bool appears = self.hidden() && !hidden;
  WindowClass::super<bridge::setterOf<&UIView::hidden>>(self, hidden);
  if (!appears) return;
  std::erase(known(), self);
  known().push_back(self);
  showRootView(self);
}

void makeKeyWindow(UIWindow self) { key() = self; }

void makeKeyAndVisible(UIWindow self) {
  self.makeKeyWindow();
  self.hidden.set(NO);
}

BOOL isKeyWindow(UIWindow self) { return key() == self; }

UIViewController rootViewController(UIWindow self) { return WindowClass::state(self).rootViewController; }

void setRootViewController(UIWindow self, UIViewController controller) {
  Strong<UIViewController>& current = WindowClass::state(self).rootViewController;
  if (current == retained(controller)) return;
  if (current && current->isViewLoaded() && current->view().superview() == self)
    current->view().removeFromSuperview();
  current = retained(controller);
  showRootView(self);
}

void sendEvent(UIWindow self, UIEvent) { deliverTouches(self); }

UIResponder nextResponder(UIWindow) { return UIApplication::sharedApplication(); }

}  // namespace

std::vector<UIWindow> windows() {
  std::vector<UIWindow> ordered;
  auto lower = [](UIWindow back, UIWindow front) { return back.windowLevel() < front.windowLevel(); };
  for (const UIWindow window : known())
    ordered.insert(std::upper_bound(ordered.begin(), ordered.end(), window, lower), window);
  return ordered;
}

UIWindow keyWindow() { return key(); }

void defineWindow() {
  using bridge::method;
  WindowClass::define<UIView>(
      method<&UIView::initWithFrame, initWithFrame>(), method<bridge::setterOf<&UIView::hidden>, setHidden>(),
      method<&UIWindow::makeKeyWindow, makeKeyWindow>(),
      method<&UIWindow::makeKeyAndVisible, makeKeyAndVisible>(),
      method<&UIWindow::isKeyWindow, isKeyWindow>(), method<&UIWindow::sendEvent, sendEvent>(),
      WindowClass::property<&UIWindow::windowLevel, &WindowState::level>(),
      bridge::property<&UIWindow::rootViewController, rootViewController, setRootViewController>(),
      method<&UIResponder::nextResponder, nextResponder>());
}

}  // namespace sim::uikit
