// The lock screen.
#pragma once

#include "platform/uikit/view_controller.hpp"

struct SBLockScreenViewController : bridge::Face<"SBLockScreenViewController", UIViewController> {
  MESSAGE OptionalMethod<"isLockScreenVisible", BOOL()> isLockScreenVisible;  // up to 9
};

struct SBLockScreenManager : bridge::Face<"SBLockScreenManager", NSObject> {
  static constexpr bridge::ClassMethod<"SBLockScreenManager", "sharedInstance", SBLockScreenManager()>
      sharedInstance{};
  MESSAGE Method<"lockScreenViewController", SBLockScreenViewController()> lockScreenViewController;
  MESSAGE OptionalMethod<"isLockScreenVisible", BOOL()> isLockScreenVisible;  // from 10 on
};
