// NSRunLoop and NSDate, as far as time is stepped through them.
#pragma once

#include "platform/foundation/string.hpp"

struct NSDate : bridge::Face<"NSDate", NSObject> {
  static constexpr bridge::ClassMethod<"NSDate", "date", NSDate()> date{};
  // Seconds since 1 January 2001.
  MESSAGE Method<"timeIntervalSinceReferenceDate", double()> timeIntervalSinceReferenceDate;
  MESSAGE Method<"timeIntervalSinceNow", double()> timeIntervalSinceNow;  // seconds; negative for the past
};

struct NSRunLoop : bridge::Face<"NSRunLoop", NSObject> {
  static constexpr bridge::ClassMethod<"NSRunLoop", "currentRunLoop", NSRunLoop()> currentRunLoop{};
  // Fires the timers that are due; the date of the next one.
  MESSAGE Method<"limitDateForMode:", NSDate(NSString)> limitDateForMode;
};
