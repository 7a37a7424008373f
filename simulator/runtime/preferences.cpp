// CFPreferences: the domain's file is looked at at every call, read again where it is another than before,
// and changes are written at once. What the disk refuses to take, or a file that cannot be parsed, stays in
// memory, and the file is left as it is. Several processes may write: each reads and writes the whole file
// under a lock, and replaces it in one go.
#include "simulator/runtime/preferences.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <time.h>

#include <cerrno>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/corefoundation/preferences.hpp"
#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/number.hpp"
#include "simulator/device/descriptor.hpp"
#include "simulator/device/file_state.hpp"
#include "simulator/device/unfinished_files.hpp"
#include "simulator/device/whole_file.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/runtime/number_form.hpp"
#include "simulator/runtime/property_list.hpp"

namespace sim {
namespace {

constexpr const char* preferencesFolder = "/var/mobile/Library/Preferences";

struct Domain {
  std::string path;
  // Changes that could not be written, by key; no value where the key was removed.
  std::map<std::string, bridge::Strong<NSObject>> unsaved;
  // The file when it was looked at last; one that might have been another at once is none.
  std::optional<FileState> state;
  // What it held then, and what was read from that.
  std::optional<std::string> bytes;
  bridge::Strong<NSDictionary> values;
};

// What the process keeps of its domains is one thread's at a time.
std::recursive_mutex& threads() {
  static std::recursive_mutex lock;
  return lock;
}

Domain& domainOf(NSString name) {
  static auto& domains = *new std::map<std::string, Domain, std::less<>>();
  const std::string_view text = name.UTF8String();
  const auto found = domains.find(text);
  if (found != domains.end()) return found->second;
  const std::string path = std::string(preferencesFolder) + "/" + std::string(text) + ".plist";
  return domains.emplace(text, Domain{path, {}, {}, {}, {}}).first->second;
}

NSString fileOf(const Domain& domain) { return NSString::stringWithUTF8String(domain.path.c_str()); }

// What the file held when it was looked at last; nil where it is another since.
NSDictionary keptOf(const Domain& domain, const std::optional<FileState>& state) {
  if (!state || !domain.values || domain.state != state) return {};
  return bridge::Strong<NSDictionary>(domain.values).autoreleased();
}

// What the file holds. The same bytes as before are not read anew.
NSDictionary valuesOf(Domain& domain) {
  timespec now;
  ::clock_gettime(CLOCK_REALTIME, &now);
  if (const NSDictionary kept = keptOf(domain, stateOf(domain.path))) return kept;
  auto file = wholeFile(domain.path);
  if (!file || domain.bytes != file->bytes) {
    domain.bytes.reset();
    if (file) domain.bytes = std::move(file->bytes);
    const std::string_view bytes = domain.bytes ? std::string_view(*domain.bytes) : std::string_view();
    domain.values = retained(propertyList(NSData::dataWithBytes_length(bytes.data(), bytes.size())));
  }
  domain.state = file && file->state.isSettled(now) ? std::optional(file->state) : std::nullopt;
  return bridge::Strong<NSDictionary>(domain.values).autoreleased();
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
bridge::Strong<NSMutableDictionary> withUnsaved(NSDictionary file, const Domain& domain) {
  bridge::Strong<NSMutableDictionary> values = file.mutableCopy();
  if (!values) values = bridge::make<NSMutableDictionary, &NSObject::init>();
  for (auto& [key, value] : domain.unsaved)
    values->setValue_forKey(value, NSString::stringWithUTF8String(key.c_str()));
  return values;
}

// Writes the file with all changes that are not in it yet. What it holds then is known without reading it:
// the changes as they are read where they stand alone, for a file keeps fewer digits than a number may have.
bool save(NSDictionary file, Domain& domain) {
  const bool readable = file || !NSFileManager::defaultManager().fileExistsAtPath(fileOf(domain));
  if (!readable) return false;
  const auto all = withUnsaved(file, domain), changed = withUnsaved({}, domain);
  const NSData text = propertyListText(all);
  const std::string_view bytes(static_cast<const char*>(text.bytes()), text.length());
  if (!replaceFile(domain.path, bytes)) return false;
  const NSDictionary changes = propertyList(propertyListText(changed));
  for (auto& [key, value] : domain.unsaved)
    value = retained(bridge::as<NSObject>(changes.objectForKey(NSString::stringWithUTF8String(key.c_str()))));
  domain.values = withUnsaved(file, domain);
  domain.bytes = bytes;
  domain.state = {};
  domain.unsaved.clear();
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

NSDictionary storedPreferences(NSString domain) {
  const std::lock_guard guard(threads());
  return valuesOf(domainOf(domain));
}

NSDictionary preferenceDomain(NSString domain) {
  const std::lock_guard guard(threads());
  Domain& own = domainOf(domain);
  auto values = withUnsaved(valuesOf(own), own);
  return values->count() ? std::move(values).autoreleased() : NSMutableDictionary{};
}

bool setPreference(NSString domain, NSString key, bridge::Object value) {
  const std::lock_guard guard(threads());
  Domain& own = domainOf(domain);
  const bridge::Object written = withAllDigits(value);
  // What is set already is not written again.
  const auto isSet = [&](NSDictionary file) {
    return own.unsaved.empty() && isWrittenAs(file.objectForKey(key), written);
  };
  if (isSet(keptOf(own, stateOf(own.path)))) return true;
  WriteLock lock;
  const NSDictionary file = valuesOf(own);
  if (isSet(file)) return true;
  own.unsaved[key.UTF8String()] = bridge::retained(bridge::as<NSObject>(written));
  return save(file, own);
}

void setPreferences(NSString domain, NSDictionary values, NSArray removedKeys) {
  const std::lock_guard guard(threads());
  Domain& own = domainOf(domain);
  WriteLock lock;
  const NSArray keys = values.allKeys();
  for (NSUInteger i = 0; i < keys.count(); ++i) {
    const auto key = bridge::as<NSString>(keys.objectAtIndex(i));
    own.unsaved[key.UTF8String()] =
        bridge::retained(bridge::as<NSObject>(withAllDigits(values.objectForKey(key))));
  }
  for (NSUInteger i = 0; i < removedKeys.count(); ++i)
    own.unsaved[bridge::as<NSString>(removedKeys.objectAtIndex(i)).UTF8String()] = nullptr;
  save(valuesOf(own), own);
}

bool preferencesAreSaved(NSString domain) {
  const std::lock_guard guard(threads());
  return domainOf(domain).unsaved.empty();
}

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
