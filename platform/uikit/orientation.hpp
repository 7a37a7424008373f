// The ways an interface, and the device itself, can be turned.
#pragma once

#include "bridge/runtime.hpp"

// UIInterfaceOrientation; named after the side the home button is on.
enum : NSInteger {
  UIInterfaceOrientationPortrait = 1,
  UIInterfaceOrientationPortraitUpsideDown = 2,
  UIInterfaceOrientationLandscapeRight = 3,
  UIInterfaceOrientationLandscapeLeft = 4
};

// UIDeviceOrientation; named after the side that the device was turned to, hence the other one in landscape.
enum : NSInteger {
  UIDeviceOrientationUnknown = 0,
  UIDeviceOrientationPortrait = 1,
  UIDeviceOrientationPortraitUpsideDown = 2,
  UIDeviceOrientationLandscapeLeft = 3,
  UIDeviceOrientationLandscapeRight = 4
};
