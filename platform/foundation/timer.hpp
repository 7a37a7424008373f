// NSTimer.
#pragma once

#include "platform/foundation/object.hpp"

struct NSTimer : bridge::Face<"NSTimer", NSObject> {
  // Seconds; the target is retained until the timer has fired or is invalidated.
  static constexpr bridge::ClassMethod<"NSTimer",
                                       "scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:",
                                       NSTimer(double, bridge::Object, SEL, bridge::Object, BOOL)>
      scheduledTimerWithTimeInterval_target_selector_userInfo_repeats{};
  MESSAGE Method<"invalidate", void()> invalidate;
  MESSAGE Method<"isValid", BOOL()> isValid;
};
