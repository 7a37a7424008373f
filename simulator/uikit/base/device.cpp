// UIDevice.
#include "simulator/uikit/base/device.hpp"

#include "bridge/define.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/device.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/uikit/base/configuration.hpp"

SIMULATOR_EXPORT const id UIDeviceOrientationDidChangeNotification =
    "UIDeviceOrientationDidChangeNotification"_ns.raw;

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

void postDeviceOrientation() {
  NSNotificationCenter::defaultCenter().postNotificationName_object(
      bridge::as<NSString>(UIDeviceOrientationDidChangeNotification), UIDevice::currentDevice());
}

void defineDevice() {
  using bridge::method;
  bridge::Implementation<UIDevice>::define<NSObject>(
      method<&UIDevice::currentDevice, currentDevice>(), method<&UIDevice::systemVersion, systemVersion>(),
      method<&UIDevice::userInterfaceIdiom, userInterfaceIdiom>(),
      method<&UIDevice::orientation, orientation>());
}

}  // namespace sim::uikit
