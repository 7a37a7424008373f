// NSDictionary and NSMutableDictionary.
#pragma once

#include "platform/foundation/array.hpp"
#include "platform/foundation/string.hpp"

struct NSMutableDictionary;

struct NSDictionary : bridge::Face<"NSDictionary", NSObject> {
  static constexpr bridge::ClassMethod<"NSDictionary", "dictionary", NSDictionary()> dictionary{};
  static constexpr bridge::ClassMethod<"NSDictionary", "dictionaryWithObject:forKey:",
                                       NSDictionary(bridge::Object, bridge::Object)>
      dictionaryWithObject_forKey{};
  // Nil when the file is no property list of keys and values.
  static constexpr bridge::ClassMethod<"NSDictionary",
                                       "dictionaryWithContentsOfFile:", NSDictionary(NSString)>
      dictionaryWithContentsOfFile{};
  MESSAGE Method<"count", NSUInteger()> count;
  MESSAGE Method<"allKeys", NSArray()> allKeys;
  MESSAGE Method<"objectForKey:", bridge::Object(bridge::Object)> objectForKey;
  MESSAGE Method<"mutableCopy", NSMutableDictionary()> mutableCopy;
  MESSAGE Method<"writeToFile:atomically:", BOOL(NSString, BOOL)> writeToFile_atomically;
};

struct NSMutableDictionary : bridge::Face<"NSMutableDictionary", NSDictionary> {
  static constexpr bridge::ClassMethod<"NSMutableDictionary", "dictionary", NSMutableDictionary()>
      dictionary{};
  MESSAGE Method<"initWithDictionary:", NSMutableDictionary(NSDictionary)> initWithDictionary;
  MESSAGE Method<"setObject:forKey:", void(bridge::Object, bridge::Object)> setObject_forKey;
  MESSAGE Method<"setValue:forKey:", void(bridge::Object, NSString)> setValue_forKey;
  MESSAGE Method<"addEntriesFromDictionary:", void(NSDictionary)> addEntriesFromDictionary;
  MESSAGE Method<"removeObjectForKey:", void(bridge::Object)> removeObjectForKey;
};
