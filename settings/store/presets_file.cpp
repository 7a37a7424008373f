// Reading, creating and writing the presets file.
#include "settings/store/presets_file.hpp"

#include <cstdio>

#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/json.hpp"
#include "platform/foundation/null.hpp"
#include "settings/store/values.hpp"

namespace tilo::presets {
namespace {

NSString directory() { return "/var/mobile/Documents/com.wexor.tilo3/custom/"_ns; }

// The bytes that were to be written. That they could not be changes nothing for the caller.
NSData write(NSArray presets) {
  NSData bytes = document(presets);
  bytes.writeToFile_atomically(path(), YES);
  return bytes;
}

NSData create(NSArray presets) {
  makeFolder();
  return write(presets ? presets : NSArray::array());
}

bool exists(NSString file) { return NSFileManager::defaultManager().fileExistsAtPath(file); }

// Nil where the bytes are no presets document.
NSArray listIn(NSData bytes) {
  if (!bytes) return {};
  bridge::Object document = NSJSONSerialization::JSONObjectWithData_options_error(bytes, 0, nullptr);
  if (!bridge::isKindOf<NSDictionary>(document)) return {};
  bridge::Object list = bridge::as<NSDictionary>(document).objectForKey(keys::configurations);
  return bridge::isKindOf<NSArray>(list) ? bridge::as<NSArray>(list) : NSArray{};
}

// A name beside the file that nothing bears yet; nil when there are too many.
NSString nameForDamaged() {
  constexpr int most = 1000;
  for (int number = 1; number <= most; ++number) {
    char name[64];
    std::snprintf(name, sizeof name, number == 1 ? "config.damaged.json" : "config.damaged-%d.json", number);
    NSString place = directory().stringByAppendingString(NSString::stringWithUTF8String(name));
    if (!exists(place)) return place;
  }
  return {};
}

// Moves what is no presets document out of the way, so that somebody may mend it. False when that fails.
bool keepDamaged() {
  if (!exists(path()) || listIn(NSData::dataWithContentsOfFile(path()))) return true;
  NSString place = nameForDamaged();
  return place && NSFileManager::defaultManager().moveItemAtPath_toPath_error(path(), place, nullptr);
}

// The same with nothing in place of numbers that are none, for which JSON has no form.
bridge::Object writable(bridge::Object object) {
  if (bridge::isKindOf<NSNumber>(object)) return numberIn(object) ? object : bridge::Object(NSNull::null());
  if (bridge::isKindOf<NSArray>(object)) {
    auto list = bridge::as<NSArray>(object);
    NSMutableArray made = NSMutableArray::array();
    for (NSUInteger i = 0; i < list.count(); ++i) made.addObject(writable(list.objectAtIndex(i)));
    return made;
  }
  if (bridge::isKindOf<NSDictionary>(object)) {
    auto table = bridge::as<NSDictionary>(object);
    NSArray names = table.allKeys();
    NSMutableDictionary made = NSMutableDictionary::dictionary();
    for (NSUInteger i = 0; i < names.count(); ++i)
      made.setObject_forKey(writable(table.objectForKey(names.objectAtIndex(i))), names.objectAtIndex(i));
    return made;
  }
  return object;
}

}  // namespace

NSString path() { return "/var/mobile/Documents/com.wexor.tilo3/custom/config.json"_ns; }

void makeFolder() {
  NSFileManager::defaultManager().createDirectoryAtPath_withIntermediateDirectories_attributes_error(
      directory(), YES, {}, nullptr);
}

NSData document(NSArray presets) {
  NSDictionary whole = NSDictionary::dictionaryWithObject_forKey(presets, keys::configurations);
  return NSJSONSerialization::dataWithJSONObject_options_error(whole, 0, nullptr);
}

NSArray load(NSArray initial) {
  NSData bytes = NSData::dataWithContentsOfFile(path());
  if (!bytes && !exists(path())) bytes = create(initial);
  return listIn(bytes);
}

bridge::Strong<NSMutableDictionary> at(NSArray presets, int position) {
  const auto place = static_cast<NSUInteger>(position);
  if (position < 0 || place >= presets.count()) return nullptr;
  bridge::Object record = presets.objectAtIndex(place);
  if (!bridge::isKindOf<NSDictionary>(record)) return nullptr;
  auto copy = bridge::as<NSDictionary>(record).mutableCopy();
  copy->setObject_forKey(NSNumber::numberWithInt(position), keys::value);
  return copy;
}

void save(NSArray presets) {
  if (keepDamaged()) write(bridge::as<NSArray>(writable(presets)));
}

}  // namespace tilo::presets
