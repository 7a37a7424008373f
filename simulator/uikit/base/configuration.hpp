// The device that UIKit finds itself on, and which way it is held.
#pragma once

#include <string>

#include "platform/coregraphics/geometry.hpp"
#include "platform/uikit/orientation.hpp"

namespace sim::uikit {

/** What UIDevice and UIScreen tell. Sizes are those of the upright device. */
struct Configuration {
  std::string systemVersion;
  NSInteger idiom = 0;                                     // UIUserInterfaceIdiom
  CGSize size{};                                           // points
  double scale = 2;                                        // pixels per point as UIScreen tells it
  CGSize nativeSize{};                                     // pixels of the panel
  NSInteger orientation = UIInterfaceOrientationPortrait;  // of the interface
  NSInteger deviceOrientation = UIDeviceOrientationPortrait;
  // Whether the screen feels how hard it is pressed.
  bool forceTouch = true;
};

/** Call before the first use of UIKit, and again to become another device. */
void configure(Configuration configuration);
const Configuration& configuration();

/** Turns the interface: UIScreen's bounds and the status bar follow; windows stay as they are. */
void setInterfaceOrientation(NSInteger orientation);
/** Turns the device; what the interface makes of it is for others to say. */
void setDeviceOrientation(NSInteger orientation);
bool isLandscape(NSInteger interfaceOrientation);
/** The screen's size in points, as turned. */
CGSize screenSize();
/** The screen's size in pixels of the panel, as turned. */
CGSize screenPixels();
/** Pixels of the panel per point, which need not be the scale that UIScreen tells. */
double nativeScale();

}  // namespace sim::uikit
