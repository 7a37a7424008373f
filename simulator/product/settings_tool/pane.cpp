// Loading the page's bundle.
#include "simulator/product/settings_tool/pane.hpp"

#include <dlfcn.h>

#include <filesystem>

#include "simulator/device/usage_error.hpp"

namespace sim::product {
namespace {

std::filesystem::path bundle() {
  return std::filesystem::canonical("/proc/self/exe").parent_path() / "Tilo.bundle";
}

}  // namespace

void loadPane() {
  static const bool loaded = dlopen((bundle() / "Tilo").c_str(), RTLD_NOW) != nullptr;
  if (!loaded) throw UsageError(dlerror());
  TiloSettings::useSpecifierFile(specifierFile());
}

NSString specifierFile() { return NSString::stringWithUTF8String((bundle() / "Root.plist").c_str()); }

appsupport::Message announcement(NSDictionary item, NSObject value) {
  const bridge::Object announced = item.objectForKey("announced"_ns);
  const bool byTitle =
      bridge::isKindOf<NSString>(announced) && bridge::as<NSString>(announced).isEqualToString("title"_ns);
  auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
  info->setObject_forKey(item.objectForKey(byTitle ? "label"_ns : "key"_ns), "name"_ns);
  info->setObject_forKey(value, byTitle ? "value"_ns : "index"_ns);
  return {byTitle ? "PreferencesDidChangeNotification"_ns : "ListPreferencesDidChangeNotification"_ns,
          std::move(info).autoreleased()};
}

}  // namespace sim::product
