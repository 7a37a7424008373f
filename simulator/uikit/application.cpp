// UIApplication.
#include "simulator/uikit/application.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/uikit/array.hpp"
#include "simulator/uikit/configuration.hpp"
#include "simulator/uikit/window.hpp"

namespace sim::uikit {
namespace {

// Made of the class that is first asked, which may be a subclass, and kept.
UIApplication sharedApplication(Class self) {
  static const id application = [self] {
    const id raw = bridge::Message<"alloc", bridge::Object()>::send(reinterpret_cast<id>(self)).leak();
    return bridge::Descriptor<&NSObject::init>::send(raw).leak();
  }();
  return bridge::as<UIApplication>(application);
}

UIWindow keyWindowOf(UIApplication) { return keyWindow(); }
NSArray windowsOf(UIApplication) { return makeArray(windows()); }
NSInteger statusBarOrientation(UIApplication) { return configuration().orientation; }

}  // namespace

void defineApplication() {
  using bridge::method;
  bridge::Implementation<UIApplication>::define<UIResponder>(
      method<&UIApplication::sharedApplication, sharedApplication>(),
      method<&UIApplication::keyWindow, keyWindowOf>(), method<&UIApplication::windows, windowsOf>(),
      method<&UIApplication::statusBarOrientation, statusBarOrientation>());
}

}  // namespace sim::uikit
