// CFPreferences: values are read from the domain's file at every call and written at once. What the disk
// refuses to take, or a file that cannot be parsed, stays in memory, and the file is left as it is.
#include "simulator/runtime/preferences.hpp"

#include <string>
#include <unordered_map>

#include "platform/corefoundation/preferences.hpp"
#include "platform/foundation/file_manager.hpp"
#include "simulator/runtime/export.hpp"

namespace sim {
namespace {

// Values that could not be written, by domain.
bridge::Strong<NSMutableDictionary>& unsaved(NSString domain) {
  static auto& domains = *new std::unordered_map<std::string, bridge::Strong<NSMutableDictionary>>();
  auto& values = domains[domain.UTF8String()];
  if (!values) values = bridge::make<NSMutableDictionary, &NSObject::init>();
  return values;
}

NSString fileOf(NSString domain) {
  return "/var/mobile/Library/Preferences/"_ns.stringByAppendingString(domain).stringByAppendingString(
      ".plist"_ns);
}

NSDictionary stored(NSString domain) { return NSDictionary::dictionaryWithContentsOfFile(fileOf(domain)); }

}  // namespace

NSDictionary preferenceDomain(NSString domain) {
  bridge::Strong<NSMutableDictionary> values = stored(domain).mutableCopy();
  if (!values) values = bridge::make<NSMutableDictionary, &NSObject::init>();
  values->addEntriesFromDictionary(unsaved(domain));
  return values->count() ? std::move(values).autoreleased() : NSMutableDictionary{};
}

namespace {

void setPreference(NSString domain, NSString key, bridge::Object value) {
  NSDictionary before = stored(domain);
  bool readable = before || !NSFileManager::defaultManager().fileExistsAtPath(fileOf(domain));
  bridge::Strong<NSMutableDictionary> after = before.mutableCopy();
  if (!after) after = bridge::make<NSMutableDictionary, &NSObject::init>();
  after->addEntriesFromDictionary(unsaved(domain));
  after->setValue_forKey(value, key);
  if (readable && after->writeToFile_atomically(fileOf(domain), YES))
    unsaved(domain).clear();
  else
    unsaved(domain)->setValue_forKey(value, key);
}

}  // namespace
}  // namespace sim

// The device has one user and one host; who asks makes no difference.
extern "C" {
__attribute__((visibility("default"), used)) extern const id kCFPreferencesCurrentUser = nullptr;
__attribute__((visibility("default"), used)) extern const id kCFPreferencesAnyHost = nullptr;
}

SIMULATOR_EXPORT id CFPreferencesCopyKeyList(id domain, id, id) {
  NSDictionary values = sim::preferenceDomain(bridge::as<NSString>(domain));
  return values ? bridge::retain(values.allKeys().raw) : nullptr;
}

SIMULATOR_EXPORT id CFPreferencesCopyMultiple(id keys, id domain, id, id) {
  bridge::Pool pool;
  NSDictionary values = sim::preferenceDomain(bridge::as<NSString>(domain));
  auto wanted = bridge::make<NSMutableDictionary, &NSObject::init>();
  NSArray names = bridge::as<NSArray>(keys);
  for (NSUInteger i = 0; i < names.count(); ++i)
    wanted->setValue_forKey(values.objectForKey(names.objectAtIndex(i)),
                            bridge::as<NSString>(names.objectAtIndex(i)));
  return wanted.leak();
}

SIMULATOR_EXPORT void CFPreferencesSetValue(id key, id value, id domain, id, id) {
  bridge::Pool pool;
  sim::setPreference(bridge::as<NSString>(domain), bridge::as<NSString>(key), bridge::as<NSObject>(value));
}

// Nothing is held back, so there is nothing to bring up to date.
SIMULATOR_EXPORT unsigned char CFPreferencesSynchronize(id, id, id) { return 1; }
