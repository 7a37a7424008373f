// NSScanner: reading what a string begins with, blanks aside.
#pragma once

#include "platform/foundation/string.hpp"

struct NSScanner : bridge::Face<"NSScanner", NSObject> {
  static constexpr bridge::ClassMethod<"NSScanner", "scannerWithString:", NSScanner(NSString)>
      scannerWithString{};
  // NO where there is no number; of one with too many digits infinity is made.
  MESSAGE Method<"scanDouble:", BOOL(double*)> scanDouble;
};
