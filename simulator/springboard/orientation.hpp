// The way the home screen is turned.
#pragma once

#include "platform/uikit/application.hpp"
#include "simulator/device/catalogue.hpp"

namespace sim::springboard {

inline NSInteger currentOrientation() { return UIApplication::sharedApplication().statusBarOrientation(); }

inline bool isLandscape(NSInteger orientation) {
  return orientation == UIInterfaceOrientationLandscapeLeft ||
         orientation == UIInterfaceOrientationLandscapeRight;
}

inline Orientation asOrientation(NSInteger orientation) {
  return isLandscape(orientation) ? Orientation::landscape : Orientation::portrait;
}

inline NSInteger asInterfaceOrientation(Orientation orientation) {
  return orientation == Orientation::landscape ? UIInterfaceOrientationLandscapeRight
                                               : UIInterfaceOrientationPortrait;
}

}  // namespace sim::springboard
