// Loading the page's bundle.
#include "simulator/product/settings_tool/pane.hpp"

#include <dlfcn.h>
#include <fmt/format.h>

#include <filesystem>

#include "simulator/device/program_folder.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim::product {
namespace {

std::filesystem::path bundle() { return programFolder() / "Tilo.bundle"; }

}  // namespace

void loadPane() {
  static const bool loaded = dlopen((bundle() / "Tilo").c_str(), RTLD_NOW) != nullptr;
  if (!loaded) throw UsageError(dlerror());
  TiloSettings::useSpecifierFile(specifierFile());
}

NSString specifierFile() { return NSString::stringWithUTF8String((bundle() / "Root.plist").c_str()); }

NSNumber storeSetting(NSDictionary item, std::string_view name, std::string_view written, NSObject given) {
  if (const NSString fault = TiloSettings::faultOf_given(item, given))
    throw UsageError(fmt::format("'{}' for '{}': it {}", written, name, fault.UTF8String()));
  const NSNumber value = TiloSettings::valueOf_given(item, given);
  if (!TiloSettings::store_at(value, bridge::as<NSString>(item.objectForKey("key"_ns))))
    throw UsageError("the preferences file cannot be read, or not be written; it is as it was");
  return value;
}

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
