// NSBundle(custom)'s method.
#include "panel/resource_bundle.hpp"

#include "bridge/replace.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/file_manager.hpp"

namespace tilo {
namespace {

NSBundle find() {
  if (NSFileManager::defaultManager().fileExistsAtPath("/bootstrap/Library/SBInject"_ns))
    return NSBundle::bundleWithPath("/bootstrap/Library/SBInject/Tilo_Main.bundle"_ns);
  return NSBundle::bundleWithPath("/Library/MobileSubstrate/DynamicLibraries/Tilo_Main.bundle"_ns);
}

NSBundle frameworkBundle(Class) { return resourceBundle(); }

}  // namespace

NSBundle resourceBundle() {
  static constinit long once = 0;
  static constinit id bundle = nullptr;
  dispatch::once(once, [](void*) { bundle = bridge::retained(find()).leak(); });
  return bridge::as<NSBundle>(bundle);
}

void addResourceBundle() {
  constexpr auto member = &ResourceBundle::frameworkBundle;
  bridge::install(bridge::add<NSBundle, member, frameworkBundle>(bridge::Descriptor<member>::types()));
}

}  // namespace tilo
