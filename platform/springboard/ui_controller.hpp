// SBUIController, which brings applications on screen.
#pragma once

#include "platform/springboard/icon.hpp"

struct SBApplication : bridge::Face<"SBApplication", NSObject> {
  MESSAGE Method<"displayName", NSString()> displayName;
};

struct SBUIController : bridge::Face<"SBUIController", NSObject> {
  static constexpr bridge::ClassMethod<"SBUIController", "sharedInstance", SBUIController()> sharedInstance{};
  // None of these systems has the first; the next two are those of 9 and 10, the last that of 11 and 12.
  MESSAGE OptionalMethod<"activateApplicationAnimated:", void(SBApplication)> activateApplicationAnimated;
  MESSAGE OptionalMethod<"activateApplication:", void(SBApplication)> activateApplication;
  MESSAGE OptionalMethod<"activateApplication:fromIcon:location:", void(SBApplication, SBIcon, NSInteger)>
      activateApplication_fromIcon_location;
  MESSAGE OptionalMethod<"activateApplication:fromIcon:location:activationSettings:actions:",
                         void(SBApplication, SBIcon, NSInteger, bridge::Object, bridge::Object)>
      activateApplication_fromIcon_location_activationSettings_actions;
};
