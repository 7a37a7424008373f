// UIViewController.
#include "simulator/uikit/views/view_controller.hpp"

#include <utility>

#include "bridge/define.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/screen.hpp"
#include "simulator/uikit/alerts/presentation.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

using ViewControllerClass = bridge::Implementation<UIViewController, ViewControllerState>;

Strong<NSObject> init(UIViewController self) {
  return bridge::initialised<&UIViewController::initWithNibName_bundle>(self, NSString{}, NSBundle{});
}

// There are no nibs: a view is made in code.
Strong<UIViewController> initWithNibName(UIViewController self, NSString, NSBundle) {
  return ViewControllerClass::superInit<&NSObject::init>(self);
}

BOOL isViewLoaded(UIViewController self) { return static_cast<bool>(ViewControllerClass::state(self).view); }

UIView view(UIViewController self) {
  ViewControllerState& state = ViewControllerClass::state(self);
  if (!state.view) {
    self.loadView();
    if (state.view) self.viewDidLoad();
  }
  return state.view;
}

void setView(UIViewController self, UIView view) {
  const Strong<UIView> old = std::exchange(ViewControllerClass::state(self).view, retained(view));
  if (old && stateOf(old).controller == self) stateOf(old).controller = {};
  if (view) stateOf(view).controller = self;
}

void loadView(UIViewController self) {
  const auto view = bridge::make<UIView, &UIView::initWithFrame>(UIScreen::mainScreen().bounds());
  view->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  self.view.set(view);
}

UIResponder nextResponder(UIViewController self) {
  const Strong<UIView>& view = ViewControllerClass::state(self).view;
  if (!view) return {};
  return stateOf(view).superview;
}

UIViewController presentedViewController(UIViewController self) {
  return ViewControllerClass::state(self).presented;
}

UIViewController presentingViewController(UIViewController self) {
  return ViewControllerClass::state(self).presenting;
}

NSInteger interfaceOrientation(UIViewController) {
  return UIApplication::sharedApplication().statusBarOrientation();
}

// What subclasses override; nothing happens in a plain controller.
void viewDidLoad(UIViewController) {}
void appearance(UIViewController, BOOL) {}
void rotation(UIViewController, NSInteger, double) {}
void rotated(UIViewController, NSInteger) {}
void sizeTransition(UIViewController, CGSize, bridge::Object) {}

}  // namespace

ViewControllerState::~ViewControllerState() {
  if (view) stateOf(view).controller = {};
  if (presented) stateOf(presented.get()).presenting = {};
  if (stage) stage->removeFromSuperview();
}

ViewControllerState& stateOf(UIViewController controller) { return ViewControllerClass::state(controller); }

void defineViewController() {
  using bridge::method;
  ViewControllerClass::define<UIResponder>(
      method<&NSObject::init, init>(), method<&UIViewController::initWithNibName_bundle, initWithNibName>(),
      method<&UIResponder::nextResponder, nextResponder>(),
      bridge::property<&UIViewController::view, view, setView>(),
      method<&UIViewController::isViewLoaded, isViewLoaded>(),
      method<&UIViewController::loadView, loadView>(), method<&UIViewController::viewDidLoad, viewDidLoad>(),
      method<&UIViewController::viewWillAppear, appearance>(),
      method<&UIViewController::viewDidAppear, appearance>(),
      method<&UIViewController::viewWillDisappear, appearance>(),
      method<&UIViewController::viewDidDisappear, appearance>(),
      method<&UIViewController::willRotateToInterfaceOrientation_duration, rotation>(),
      method<&UIViewController::willAnimateRotationToInterfaceOrientation_duration, rotation>(),
      method<&UIViewController::didRotateFromInterfaceOrientation, rotated>(),
      method<&SizeTransitions::viewWillTransitionToSize_withTransitionCoordinator, sizeTransition>(),
      method<&UIViewController::presentViewController_animated_completion, present>(),
      method<&UIViewController::dismissViewControllerAnimated_completion, dismiss>(),
      method<&UIViewController::presentedViewController, presentedViewController>(),
      method<&UIViewController::presentingViewController, presentingViewController>(),
      method<&UIViewController::interfaceOrientation, interfaceOrientation>());
}

}  // namespace sim::uikit
