// UIDevice.
#pragma once

#include "platform/foundation/string.hpp"
#include "platform/uikit/orientation.hpp"

// UIUserInterfaceIdiom
enum : NSInteger { UIUserInterfaceIdiomPhone = 0, UIUserInterfaceIdiomPad = 1 };

// Posted by the device after it was turned.
extern "C" const id UIDeviceOrientationDidChangeNotification;

struct UIDevice : bridge::Face<"UIDevice", NSObject> {
  static constexpr bridge::ClassMethod<"UIDevice", "currentDevice", UIDevice()> currentDevice{};
  MESSAGE Method<"systemVersion", NSString()> systemVersion;
  MESSAGE Method<"userInterfaceIdiom", NSInteger()> userInterfaceIdiom;
  MESSAGE Method<"orientation", NSInteger()> orientation;  // UIDeviceOrientation
};
