// NSString, and constant strings: "enabled"_ns.
#pragma once

#include "bridge/string.hpp"
#include "platform/foundation/object.hpp"

struct NSArray;

// NSComparisonResult
enum : NSInteger { NSOrderedAscending = -1, NSOrderedSame = 0, NSOrderedDescending = 1 };
// NSStringCompareOptions
enum : NSUInteger { NSNumericSearch = 64 };
// NSStringEncoding
enum : NSUInteger { NSUTF8StringEncoding = 4 };

struct NSString : bridge::Face<"NSString", NSObject> {
  static constexpr bridge::ClassMethod<"NSString", "stringWithUTF8String:", NSString(const char*)>
      stringWithUTF8String{};
  // UTF-16 units.
  static constexpr bridge::ClassMethod<"NSString", "stringWithCharacters:length:",
                                       NSString(const unsigned short*, NSUInteger)>
      stringWithCharacters_length{};
  // Nil where the bytes are no text in that encoding.
  MESSAGE Method<"initWithBytes:length:encoding:", NSString(const void*, NSUInteger, NSUInteger)>
      initWithBytes_length_encoding;
  MESSAGE Method<"UTF8String", const char*()> UTF8String;
  MESSAGE Method<"length", NSUInteger()> length;
  MESSAGE Method<"characterAtIndex:", unsigned short(NSUInteger)> characterAtIndex;
  MESSAGE Method<"floatValue", float()> floatValue;  // 0 where there is no number
  MESSAGE Method<"isEqualToString:", BOOL(NSString)> isEqualToString;
  MESSAGE Method<"compare:options:", NSInteger(NSString, NSUInteger)> compare_options;
  MESSAGE Method<"stringByAppendingString:", NSString(NSString)> stringByAppendingString;
  MESSAGE Method<"stringByAppendingPathComponent:", NSString(NSString)> stringByAppendingPathComponent;
  MESSAGE Method<"hasPrefix:", BOOL(NSString)> hasPrefix;
  MESSAGE Method<"hasSuffix:", BOOL(NSString)> hasSuffix;
  MESSAGE Method<"componentsSeparatedByString:", NSArray(NSString)> componentsSeparatedByString;
};

template <bridge::Name Text>
NSString operator""_ns() {
  return bridge::as<NSString>(bridge::constant<Text>());
}
