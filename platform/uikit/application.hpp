// UIApplication.
#pragma once

#include "platform/uikit/window.hpp"

struct UIApplication : bridge::Face<"UIApplication", UIResponder> {
  static constexpr bridge::ClassMethod<"UIApplication", "sharedApplication", UIApplication()>
      sharedApplication{};
  MESSAGE Method<"keyWindow", UIWindow()> keyWindow;
  MESSAGE Method<"windows", NSArray()> windows;  // back to front
  MESSAGE Method<"statusBarOrientation", NSInteger()> statusBarOrientation;
};
