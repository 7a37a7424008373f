// UIApplication.
#pragma once

#include "platform/foundation/url.hpp"
#include "platform/uikit/window.hpp"

struct UIApplication : bridge::Face<"UIApplication", UIResponder> {
  static constexpr bridge::ClassMethod<"UIApplication", "sharedApplication", UIApplication()>
      sharedApplication{};
  MESSAGE Method<"keyWindow", UIWindow()> keyWindow;
  MESSAGE Method<"windows", NSArray()> windows;  // back to front
  MESSAGE Method<"sendEvent:", void(UIEvent)> sendEvent;
  // Answers whether somebody took the action; without a target it goes up the responder chain.
  MESSAGE Method<"sendAction:to:from:forEvent:", BOOL(SEL, bridge::Object, bridge::Object, UIEvent)>
      sendAction_to_from_forEvent;
  MESSAGE Method<"openURL:", BOOL(NSURL)> openURL;
  MESSAGE Method<"statusBarOrientation", NSInteger()> statusBarOrientation;
};
