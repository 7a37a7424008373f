// NSURL.
#pragma once

#include "platform/foundation/string.hpp"

struct NSURL : bridge::Face<"NSURL", NSObject> {
  static constexpr bridge::ClassMethod<"NSURL", "URLWithString:", NSURL(NSString)> URLWithString{};
  MESSAGE Method<"absoluteString", NSString()> absoluteString;
};
