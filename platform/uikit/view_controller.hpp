// UIViewController.
#pragma once

#include "platform/foundation/bundle.hpp"
#include "platform/uikit/orientation.hpp"
#include "platform/uikit/view.hpp"

struct UIViewController : bridge::Face<"UIViewController", UIResponder> {
  // Both may be nil. `init` leads here.
  MESSAGE Method<"initWithNibName:bundle:", UIViewController(NSString, NSBundle)> initWithNibName_bundle;
  MESSAGE Property<"view", UIView> view;  // loads it
  MESSAGE Method<"isViewLoaded", BOOL()> isViewLoaded;
  MESSAGE Method<"loadView", void()> loadView;
  MESSAGE Method<"viewDidLoad", void()> viewDidLoad;
  MESSAGE Method<"viewWillAppear:", void(BOOL)> viewWillAppear;
  MESSAGE Method<"viewDidAppear:", void(BOOL)> viewDidAppear;
  MESSAGE Method<"viewWillDisappear:", void(BOOL)> viewWillDisappear;
  MESSAGE Method<"viewDidDisappear:", void(BOOL)> viewDidDisappear;
  // Orientation and duration in seconds.
  MESSAGE Method<"willRotateToInterfaceOrientation:duration:", void(NSInteger, double)>
      willRotateToInterfaceOrientation_duration;
  MESSAGE Method<"willAnimateRotationToInterfaceOrientation:duration:", void(NSInteger, double)>
      willAnimateRotationToInterfaceOrientation_duration;
  MESSAGE Method<"didRotateFromInterfaceOrientation:", void(NSInteger)> didRotateFromInterfaceOrientation;
  // Over everything in the window. The completion may be empty.
  MESSAGE Method<"presentViewController:animated:completion:",
                 void(UIViewController, BOOL, bridge::BlockRef<void()>)>
      presentViewController_animated_completion;
  MESSAGE Method<"dismissViewControllerAnimated:completion:", void(BOOL, bridge::BlockRef<void()>)>
      dismissViewControllerAnimated_completion;
  MESSAGE Method<"presentedViewController", UIViewController()> presentedViewController;
  MESSAGE Method<"presentingViewController", UIViewController()> presentingViewController;
  MESSAGE Method<"interfaceOrientation", NSInteger()> interfaceOrientation;
};
