// Reading, creating and writing the presets file.
#include "settings/store/presets_file.hpp"

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/json.hpp"
#include "platform/foundation/number.hpp"
#include "settings/store/keys.hpp"

namespace tilo::presets {
namespace {

// Relative, as SpringBoard's working directory is the root of the file system.
NSString directory() { return "var/mobile/Documents/com.wexor.tilo3/custom/"_ns; }
NSString path() { return "var/mobile/Documents/com.wexor.tilo3/custom/config.json"_ns; }

// The bytes that were to be written. That they could not be changes nothing for the caller.
NSData write(NSArray presets) {
  NSDictionary document = NSDictionary::dictionaryWithObject_forKey(presets, keys::configurations);
  NSData bytes = NSJSONSerialization::dataWithJSONObject_options_error(document, 0, nullptr);
  bytes.writeToFile_atomically(path(), YES);
  return bytes;
}

NSData create(NSArray presets) {
  NSFileManager::defaultManager().createDirectoryAtPath_withIntermediateDirectories_attributes_error(
      directory(), YES, {}, nullptr);
  return write(presets ? presets : NSArray::array());
}

bool fileIsMissing() { return !NSFileManager::defaultManager().fileExistsAtPath(path()); }

}  // namespace

NSArray load(NSArray initial) {
  NSData bytes = NSData::dataWithContentsOfFile(path());
  if (!bytes && fileIsMissing()) bytes = create(initial);
  if (bytes.length() == 0) return {};
  bridge::Object document = NSJSONSerialization::JSONObjectWithData_options_error(bytes, 0, nullptr);
  if (!bridge::isKindOf<NSDictionary>(document)) return {};
  bridge::Object list = bridge::as<NSDictionary>(document).objectForKey(keys::configurations);
  return bridge::isKindOf<NSArray>(list) ? bridge::as<NSArray>(list) : NSArray{};
}

bridge::Strong<NSMutableArray> renumbered(NSArray presets) {
  auto result = bridge::make<NSMutableArray, &NSObject::init>();
  for (NSUInteger position = 0; position < presets.count(); ++position) {
    bridge::Object record = presets.objectAtIndex(position);
    if (!bridge::isKindOf<NSDictionary>(record)) continue;
    bridge::Strong<NSMutableDictionary> copy = bridge::as<NSDictionary>(record).mutableCopy();
    copy->setObject_forKey(NSNumber::numberWithInt(static_cast<int>(position)), keys::value);
    result->addObject(copy.get());
  }
  return result;
}

void save(NSArray presets) { write(presets); }

}  // namespace tilo::presets
