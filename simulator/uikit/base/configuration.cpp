// The device that UIKit finds itself on, and which way it is held.
#include "simulator/uikit/base/configuration.hpp"

#include <utility>

namespace sim::uikit {
namespace {

Configuration& current() {
  static auto& configuration = *new Configuration();
  return configuration;
}

CGSize turned(CGSize upright) {
  if (isLandscape(current().orientation)) std::swap(upright.width, upright.height);
  return upright;
}

}  // namespace

void configure(Configuration configuration) { current() = std::move(configuration); }
const Configuration& configuration() { return current(); }
void setInterfaceOrientation(NSInteger orientation) { current().orientation = orientation; }
void setDeviceOrientation(NSInteger orientation) { current().deviceOrientation = orientation; }

bool isLandscape(NSInteger interfaceOrientation) {
  return interfaceOrientation == UIInterfaceOrientationLandscapeLeft ||
         interfaceOrientation == UIInterfaceOrientationLandscapeRight;
}

CGSize screenSize() { return turned(current().size); }
CGSize screenPixels() { return turned(current().nativeSize); }
double nativeScale() { return current().nativeSize.width / current().size.width; }

}  // namespace sim::uikit
