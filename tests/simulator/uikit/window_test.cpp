// Windows and view controllers.
#include "simulator/uikit/views/window.hpp"

#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

using Window = UIKit;
using ViewController = UIKit;

struct RecordingController : bridge::Face<"TestRecordingController", UIViewController> {};

std::vector<std::string> lines;

struct ControllerMethods {
  static void loaded(RecordingController) { lines.push_back("loaded"); }
  static void appears(RecordingController, BOOL) { lines.push_back("will appear"); }
  static void appeared(RecordingController, BOOL) { lines.push_back("did appear"); }
  static void leaves(RecordingController, BOOL) { lines.push_back("will disappear"); }
  static void left(RecordingController, BOOL) { lines.push_back("did disappear"); }
};

Strong<RecordingController> makeController() {
  using M = ControllerMethods;
  bridge::Implementation<RecordingController>::define<UIViewController>(
      method<&UIViewController::viewDidLoad, M::loaded>(),
      method<&UIViewController::viewWillAppear, M::appears>(),
      method<&UIViewController::viewDidAppear, M::appeared>(),
      method<&UIViewController::viewWillDisappear, M::leaves>(),
      method<&UIViewController::viewDidDisappear, M::left>());
  lines.clear();
  return make<RecordingController, &NSObject::init>();
}

TEST_F(Window, IsHiddenUntilItIsMadeVisible) {
  auto window = make<UIWindow, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
  EXPECT_TRUE(window->hidden());  // confirmed: Apple documentation of makeKeyAndVisible
  EXPECT_FALSE(window->isKeyWindow());
  window->makeKeyAndVisible();
  EXPECT_FALSE(window->hidden());
  EXPECT_TRUE(window->isKeyWindow());
  EXPECT_TRUE(UIApplication::sharedApplication().keyWindow() == window);
  EXPECT_TRUE(window->window() == window);
}

TEST_F(Window, LevelsComeBeforeTheOrderOfAppearance) {
  auto alert = makeWindow();
  alert->windowLevel.set(UIWindowLevelAlert);
  auto first = makeWindow();
  auto second = makeWindow();
  EXPECT_EQ(sim::uikit::windows(),
            (std::vector<UIWindow>{first, second, alert}));  // confirmed: device-facts 7.4
  first->hidden.set(YES);
  first->hidden.set(NO);
  EXPECT_EQ(sim::uikit::windows(), (std::vector<UIWindow>{second, first, alert}));  // assumed
}

TEST_F(Window, RootViewComesWithTheFirstShowing) {
  auto controller = makeController();
  auto window = make<UIWindow, &UIView::initWithFrame>(CGRect{{0, 0}, {300, 500}});
  window->rootViewController.set(controller);
  EXPECT_FALSE(controller->isViewLoaded());  // assumed
  window->makeKeyAndVisible();
  EXPECT_EQ(lines, (std::vector<std::string>{"loaded", "will appear",
                                             "did appear"}));  // confirmed: Apple's life cycle
  EXPECT_TRUE(controller->view().superview() == window.get());
  EXPECT_EQ(controller->view().frame(), (CGRect{{0, 0}, {300, 500}}));
  window->frame.set({{0, 0}, {500, 300}});
  EXPECT_EQ(controller->view().frame(), (CGRect{{0, 0}, {500, 300}}));
}

TEST_F(Window, RootViewGoesWithItsController) {
  auto window = makeWindow();
  auto controller = makeController();
  window->rootViewController.set(controller);
  EXPECT_EQ(controller->retainCount(), 2u);
  lines.clear();
  window->rootViewController.set({});
  EXPECT_EQ(lines, (std::vector<std::string>{"will disappear", "did disappear"}));
  EXPECT_FALSE(controller->view().superview());
  EXPECT_EQ(controller->retainCount(), 1u);
}

TEST_F(ViewController, LoadsItsViewWhenItIsFirstAskedFor) {
  auto controller = makeController();
  EXPECT_FALSE(controller->isViewLoaded());
  const UIView view = controller->view();
  EXPECT_TRUE(controller->isViewLoaded());  // confirmed: Apple documentation of view
  EXPECT_EQ(lines, std::vector<std::string>{"loaded"});
  EXPECT_TRUE(controller->view() == view);
  EXPECT_EQ(lines.size(), 1u);
  EXPECT_EQ(view.retainCount(), 1u);
}

TEST_F(ViewController, TakesAViewThatItIsGiven) {
  auto controller = makeController();
  auto view = makeView();
  controller->view.set(view);
  EXPECT_TRUE(lines.empty());
  EXPECT_TRUE(view->nextResponder() == controller.get());
  controller->view.set({});
  EXPECT_FALSE(view->nextResponder());
  EXPECT_EQ(view->retainCount(), 1u);
}

TEST_F(ViewController, TellsTheInterfacesOrientation) {
  auto controller = makeController();
  EXPECT_EQ(controller->interfaceOrientation(), UIInterfaceOrientationPortrait);
  sim::uikit::setInterfaceOrientation(UIInterfaceOrientationLandscapeLeft);
  EXPECT_EQ(controller->interfaceOrientation(), UIInterfaceOrientationLandscapeLeft);
}

}  // namespace
}  // namespace test
