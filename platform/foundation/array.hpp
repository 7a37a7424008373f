// NSArray and NSMutableArray.
#pragma once

#include "platform/foundation/object.hpp"

struct NSArray : bridge::Face<"NSArray", NSObject> {
  static constexpr bridge::ClassMethod<"NSArray", "array", NSArray()> array{};
  MESSAGE Method<"count", NSUInteger()> count;
  MESSAGE Method<"objectAtIndex:", bridge::Object(NSUInteger)> objectAtIndex;
  MESSAGE Method<"sortedArrayUsingSelector:", NSArray(SEL)> sortedArrayUsingSelector;
};

struct NSMutableArray : bridge::Face<"NSMutableArray", NSArray> {
  static constexpr bridge::ClassMethod<"NSMutableArray", "array", NSMutableArray()> array{};
  static constexpr bridge::ClassMethod<"NSMutableArray", "arrayWithArray:", NSMutableArray(NSArray)>
      arrayWithArray{};
  MESSAGE Method<"addObject:", void(bridge::Object)> addObject;
  MESSAGE Method<"removeObject:", void(bridge::Object)> removeObject;  // every one equal to it
};
