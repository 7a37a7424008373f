// SpringBoard's icon controller: measuring the screen before the home screen is built, and rescaling a
// tablet's grid when it turns.
#pragma once

#include "platform/springboard/icon_controller.hpp"

namespace tilo::hooks {

bridge::Strong<NSObject> initController(SBIconController self);
bridge::Strong<UIViewController> initControllerWithNib(SBIconController self, NSString name, NSBundle bundle);
void viewDidAppear(SBIconController self, BOOL animated);
// `previous` is the orientation that the device has left.
void didRotate(SBIconController self, NSInteger previous);
void didRotateInternally(SBIconController self, NSInteger previous);

}  // namespace tilo::hooks
