// NSNumber.
#pragma once

#include "platform/foundation/object.hpp"

struct NSNumber : bridge::Face<"NSNumber", NSObject> {
  static constexpr bridge::ClassMethod<"NSNumber", "numberWithBool:", NSNumber(BOOL)> numberWithBool{};
  static constexpr bridge::ClassMethod<"NSNumber", "numberWithInt:", NSNumber(int)> numberWithInt{};
  static constexpr bridge::ClassMethod<"NSNumber", "numberWithLongLong:", NSNumber(long long)>
      numberWithLongLong{};
  static constexpr bridge::ClassMethod<"NSNumber", "numberWithFloat:", NSNumber(float)> numberWithFloat{};
  static constexpr bridge::ClassMethod<"NSNumber", "numberWithDouble:", NSNumber(double)> numberWithDouble{};
  MESSAGE Method<"boolValue", BOOL()> boolValue;
  MESSAGE Method<"intValue", int()> intValue;
  MESSAGE Method<"integerValue", NSInteger()> integerValue;
  MESSAGE Method<"longLongValue", long long()> longLongValue;
  MESSAGE Method<"floatValue", float()> floatValue;
  MESSAGE Method<"doubleValue", double()> doubleValue;
  MESSAGE Method<"objCType", const char*()> objCType;
};
