// NSDateFormatter.
#pragma once

#include "platform/foundation/run_loop.hpp"
#include "platform/foundation/string.hpp"

struct NSDateFormatter : bridge::Face<"NSDateFormatter", NSObject> {
  MESSAGE Method<"setDateFormat:", void(NSString)> setDateFormat;
  MESSAGE Method<"stringFromDate:", NSString(NSDate)> stringFromDate;
};
