// NSSet.
#pragma once

#include "platform/foundation/array.hpp"

struct NSSet : bridge::Face<"NSSet", NSObject> {
  static constexpr bridge::ClassMethod<"NSSet", "setWithArray:", NSSet(NSArray)> setWithArray{};
  MESSAGE Method<"count", NSUInteger()> count;
  MESSAGE Method<"anyObject", bridge::Object()> anyObject;
  MESSAGE Method<"allObjects", NSArray()> allObjects;
  MESSAGE Method<"containsObject:", BOOL(bridge::Object)> containsObject;
};
