// NSBundle.
#pragma once

#include "platform/foundation/string.hpp"

struct NSBundle : bridge::Face<"NSBundle", NSObject> {
  // Nil where there is no folder.
  static constexpr bridge::ClassMethod<"NSBundle", "bundleWithPath:", NSBundle(NSString)> bundleWithPath{};
  MESSAGE Method<"bundlePath", NSString()> bundlePath;
  // Nil where the bundle has no such file.
  MESSAGE Method<"pathForResource:ofType:", NSString(NSString, NSString)> pathForResource_ofType;
};
