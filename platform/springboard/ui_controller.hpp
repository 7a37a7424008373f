// SBUIController, which brings applications on screen.
#pragma once

#include "platform/foundation/string.hpp"

struct SBApplication : bridge::Face<"SBApplication", NSObject> {
  MESSAGE Method<"displayName", NSString()> displayName;
};

struct SBUIController : bridge::Face<"SBUIController", NSObject> {
  static constexpr bridge::ClassMethod<"SBUIController", "sharedInstance", SBUIController()> sharedInstance{};
  MESSAGE Method<"activateApplicationAnimated:", void(SBApplication)> activateApplicationAnimated;
};
