// UIWindow.
#pragma once

#include "platform/uikit/view_controller.hpp"

// UIWindowLevel
inline constexpr CGFloat UIWindowLevelNormal = 0;
inline constexpr CGFloat UIWindowLevelStatusBar = 1000;
inline constexpr CGFloat UIWindowLevelAlert = 2000;

struct UIWindow : bridge::Face<"UIWindow", UIView> {
  MESSAGE Method<"makeKeyAndVisible", void()> makeKeyAndVisible;
  MESSAGE Method<"makeKeyWindow", void()> makeKeyWindow;
  MESSAGE Method<"sendEvent:", void(UIEvent)> sendEvent;
  MESSAGE Method<"isKeyWindow", BOOL()> isKeyWindow;
  MESSAGE Property<"windowLevel", CGFloat> windowLevel;
  MESSAGE Property<"rootViewController", UIViewController> rootViewController;
};
