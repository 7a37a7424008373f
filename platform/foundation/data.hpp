// NSData.
#pragma once

#include "platform/foundation/string.hpp"

struct NSData : bridge::Face<"NSData", NSObject> {
  static constexpr bridge::ClassMethod<"NSData", "dataWithContentsOfFile:", NSData(NSString)>
      dataWithContentsOfFile{};
  static constexpr bridge::ClassMethod<"NSData", "dataWithBytes:length:", NSData(const void*, NSUInteger)>
      dataWithBytes_length{};
  MESSAGE Method<"length", NSUInteger()> length;
  MESSAGE Method<"bytes", const void*()> bytes;
  MESSAGE Method<"writeToFile:atomically:", BOOL(NSString, BOOL)> writeToFile_atomically;
};
