// NSFileManager.
#pragma once

#include "platform/foundation/dictionary.hpp"

struct NSFileManager : bridge::Face<"NSFileManager", NSObject> {
  static constexpr bridge::ClassMethod<"NSFileManager", "defaultManager", NSFileManager()> defaultManager{};
  MESSAGE Method<"fileExistsAtPath:", BOOL(NSString)> fileExistsAtPath;
  MESSAGE Method<"createDirectoryAtPath:withIntermediateDirectories:attributes:error:",
                 BOOL(NSString, BOOL, NSDictionary, id*)>
      createDirectoryAtPath_withIntermediateDirectories_attributes_error;
  // Fails where there is something at the destination already.
  MESSAGE Method<"moveItemAtPath:toPath:error:", BOOL(NSString, NSString, id*)> moveItemAtPath_toPath_error;
  MESSAGE Method<"removeItemAtPath:error:", BOOL(NSString, id*)> removeItemAtPath_error;
  // The names in a folder; nil where there is none.
  MESSAGE Method<"contentsOfDirectoryAtPath:error:", NSArray(NSString, id*)> contentsOfDirectoryAtPath_error;
};
