// UIDevice.
#include "simulator/uikit/device.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/device.hpp"
#include "simulator/uikit/configuration.hpp"

namespace sim::uikit {
namespace {

UIDevice currentDevice(Class) {
  static const id device = bridge::make<UIDevice, &NSObject::init>().leak();
  return bridge::as<UIDevice>(device);
}

NSString systemVersion(UIDevice) {
  return NSString::stringWithUTF8String(configuration().systemVersion.c_str());
}

NSInteger userInterfaceIdiom(UIDevice) { return configuration().idiom; }
NSInteger orientation(UIDevice) { return configuration().deviceOrientation; }

}  // namespace

void defineDevice() {
  using bridge::method;
  bridge::Implementation<UIDevice>::define<NSObject>(
      method<&UIDevice::currentDevice, currentDevice>(), method<&UIDevice::systemVersion, systemVersion>(),
      method<&UIDevice::userInterfaceIdiom, userInterfaceIdiom>(),
      method<&UIDevice::orientation, orientation>());
}

}  // namespace sim::uikit
