// UIViewController.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/view_controller.hpp"

namespace sim::uikit {

// What a controller is told before its view takes another size. Nothing here goes along with a turn, so that
// there is no coordinator: nil.
struct SizeTransitions : bridge::Face<"UIViewController", UIViewController> {
  MESSAGE Method<"viewWillTransitionToSize:withTransitionCoordinator:", void(CGSize, bridge::Object)>
      viewWillTransitionToSize_withTransitionCoordinator;
};

struct ViewControllerState {
  bridge::Strong<UIView> view;
  // What it presents, and the view in which that is shown; until its dismissal has come to an end.
  bridge::Strong<UIViewController> presented;
  bridge::Strong<UIView> stage;
  UIViewController presenting;  // not retained: it retains this one
  bool beingDismissed = false;

  ViewControllerState() = default;
  ~ViewControllerState();
  ViewControllerState(const ViewControllerState&) = delete;
  ViewControllerState& operator=(const ViewControllerState&) = delete;
};

ViewControllerState& stateOf(UIViewController controller);

}  // namespace sim::uikit
