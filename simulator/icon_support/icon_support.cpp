// The IconSupport library of a device that has it: keeps the names of the extensions that register with it.
#include "platform/iconsupport/icon_support.hpp"

#include "bridge/define.hpp"
#include "platform/foundation/array.hpp"

namespace {

struct SupportState {
  bridge::Strong<NSMutableArray> extensions;
};

using Support = bridge::Implementation<ISIconSupport, SupportState>;

ISIconSupport sharedInstance(Class) {
  static id shared = bridge::make<ISIconSupport, &NSObject::init>().leak();
  return bridge::as<ISIconSupport>(shared);
}

NSArray extensions(ISIconSupport self) {
  auto& list = Support::state(self).extensions;
  if (!list) list = bridge::make<NSMutableArray, &NSObject::init>();
  return list.get();
}

BOOL addExtension(ISIconSupport self, NSString name) {
  bridge::as<NSMutableArray>(extensions(self)).addObject(name);
  return YES;
}

__attribute__((constructor)) void defineIconSupport() {
  bridge::Pool pool;
  Support::define<NSObject>(bridge::method<&ISIconSupport::sharedInstance, sharedInstance>(),
                            bridge::method<&ISIconSupport::addExtension, addExtension>(),
                            bridge::method<&ISIconSupport::extensions, extensions>());
}

}  // namespace
