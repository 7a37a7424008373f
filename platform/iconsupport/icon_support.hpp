// ISIconSupport, the shared library through which extensions of the icon layout make themselves known.
#pragma once

#include "platform/foundation/array.hpp"
#include "platform/foundation/string.hpp"

struct ISIconSupport : bridge::Face<"ISIconSupport", NSObject> {
  static constexpr bridge::ClassMethod<"ISIconSupport", "sharedInstance", ISIconSupport()> sharedInstance{};
  MESSAGE Method<"addExtension:", BOOL(NSString)> addExtension;
  MESSAGE Method<"extensions", NSArray()> extensions;
};
