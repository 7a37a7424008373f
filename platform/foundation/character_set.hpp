// NSCharacterSet, and strings cut by one.
#pragma once

#include "platform/foundation/string.hpp"

struct NSCharacterSet : bridge::Face<"NSCharacterSet", NSObject> {
  static constexpr bridge::ClassMethod<"NSCharacterSet", "whitespaceAndNewlineCharacterSet", NSCharacterSet()>
      whitespaceAndNewlineCharacterSet{};
};

struct TrimmableString : bridge::Face<"NSString", NSString> {
  // Without the characters of the set at both ends.
  MESSAGE Method<"stringByTrimmingCharactersInSet:", NSString(NSCharacterSet)>
      stringByTrimmingCharactersInSet;
};
