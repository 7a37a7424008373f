// CFPreferences: values are read from the domain's file at every call and changes written at once. What the
// disk refuses to take, or a file that cannot be parsed, stays in memory, and the file is left as it is.
// Several processes may write: each reads and writes the whole file under a lock, and replaces it in one go.
#include "simulator/runtime/preferences.hpp"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <map>
#include <string>

#include "platform/corefoundation/preferences.hpp"
#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/number.hpp"
#include "simulator/device/descriptor.hpp"
#include "simulator/device/unfinished_files.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/runtime/number_form.hpp"
#include "simulator/runtime/property_list.hpp"

namespace sim {
namespace {

constexpr const char* preferencesFolder = "/var/mobile/Library/Preferences";

// Changes that could not be written, by key; no value where the key was removed.
using Changes = std::map<std::string, bridge::Strong<NSObject>>;

Changes& unsaved(NSString domain) {
  static auto& domains = *new std::map<std::string, Changes>();
  return domains[domain.UTF8String()];
}

NSString fileOf(NSString domain) {
  return "/var/mobile/Library/Preferences/"_ns.stringByAppendingString(domain).stringByAppendingString(
      ".plist"_ns);
}

// Keeps other writers out for as long as it lives. The lock is on the folder, since the files in it are
// replaced. Where the folder cannot be opened nothing can be written either.
class WriteLock {
 public:
  WriteLock() : folder(::open(preferencesFolder, O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    while (folder && flock(folder.get(), LOCK_EX) != 0 && errno == EINTR) {
    }
  }

 private:
  Descriptor folder;
};

// The values of the file, with what could not be written into it.
bridge::Strong<NSMutableDictionary> withUnsaved(NSDictionary file, NSString domain) {
  bridge::Strong<NSMutableDictionary> values = file.mutableCopy();
  if (!values) values = bridge::make<NSMutableDictionary, &NSObject::init>();
  for (auto& [key, value] : unsaved(domain))
    values->setValue_forKey(value, NSString::stringWithUTF8String(key.c_str()));
  return values;
}

// Writes the file with all changes that are not in it yet.
bool save(NSDictionary file, NSString domain) {
  const bool readable = file || !NSFileManager::defaultManager().fileExistsAtPath(fileOf(domain));
  if (!readable || !withUnsaved(file, domain)->writeToFile_atomically(fileOf(domain), YES)) return false;
  unsaved(domain).clear();
  return true;
}

// Whether a file holds both in the same form: a truth value is no 1, and a whole number no 1.0. Lists and
// tables, which may hold either, never count as the same.
bool isWrittenAs(bridge::Object one, bridge::Object other) {
  if (!one || !other || !bridge::as<NSObject>(one).isEqual(other)) return false;
  if (bridge::isKindOf<NSString>(one)) return true;
  return bridge::isKindOf<NSNumber>(one) && bridge::isKindOf<NSNumber>(other) &&
         formOf(bridge::as<NSNumber>(one)) == formOf(bridge::as<NSNumber>(other));
}

}  // namespace

NSDictionary storedPreferences(NSString domain) { return propertyList(fileOf(domain)); }

NSDictionary preferenceDomain(NSString domain) {
  auto values = withUnsaved(storedPreferences(domain), domain);
  return values->count() ? std::move(values).autoreleased() : NSMutableDictionary{};
}

bool setPreference(NSString domain, NSString key, bridge::Object value) {
  WriteLock lock;
  NSDictionary file = storedPreferences(domain);
  const bridge::Object written = withAllDigits(value);
  // What is set already is not written again.
  if (unsaved(domain).empty() && isWrittenAs(file.objectForKey(key), written)) return true;
  unsaved(domain)[key.UTF8String()] = bridge::retained(bridge::as<NSObject>(written));
  return save(file, domain);
}

void setPreferences(NSString domain, NSDictionary values, NSArray removedKeys) {
  WriteLock lock;
  const NSArray keys = values.allKeys();
  for (NSUInteger i = 0; i < keys.count(); ++i) {
    const auto key = bridge::as<NSString>(keys.objectAtIndex(i));
    unsaved(domain)[key.UTF8String()] =
        bridge::retained(bridge::as<NSObject>(withAllDigits(values.objectForKey(key))));
  }
  for (NSUInteger i = 0; i < removedKeys.count(); ++i)
    unsaved(domain)[bridge::as<NSString>(removedKeys.objectAtIndex(i)).UTF8String()] = nullptr;
  save(storedPreferences(domain), domain);
}

bool preferencesAreSaved(NSString domain) { return unsaved(domain).empty(); }

void removeUnfinishedPreferences(const std::filesystem::path& root) {
  WriteLock lock;
  removeUnfinishedFiles(root / std::filesystem::path(preferencesFolder).relative_path());
}

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

SIMULATOR_EXPORT void CFPreferencesSetMultiple(id values, id removedKeys, id domain, id, id) {
  bridge::Pool pool;
  sim::setPreferences(bridge::as<NSString>(domain), bridge::as<NSDictionary>(values),
                      bridge::as<NSArray>(removedKeys));
}

// Nothing is held back but what the disk refused.
SIMULATOR_EXPORT unsigned char CFPreferencesSynchronize(id domain, id, id) {
  return sim::preferencesAreSaved(bridge::as<NSString>(domain));
}
