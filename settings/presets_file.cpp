// Reading and creating the presets file.
#include "settings/presets_file.hpp"

#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/json.hpp"

namespace tilo::presets {
namespace {

// Relative, as SpringBoard's working directory is the root of the file system.
NSString directory() { return "var/mobile/Documents/com.wexor.tilo3/custom/"_ns; }
NSString path() { return "var/mobile/Documents/com.wexor.tilo3/custom/config.json"_ns; }
NSString listKey() { return "configurations"_ns; }

// The bytes of a new file. That they could not be written changes nothing for the caller.
NSData create() {
  NSFileManager::defaultManager().createDirectoryAtPath_withIntermediateDirectories_attributes_error(
      directory(), YES, {}, nullptr);
  NSDictionary empty = NSDictionary::dictionaryWithObject_forKey(NSArray::array(), listKey());
  NSData bytes = NSJSONSerialization::dataWithJSONObject_options_error(empty, 0, nullptr);
  bytes.writeToFile_atomically(path(), YES);
  return bytes;
}

}  // namespace

NSArray load() {
  NSData bytes = NSData::dataWithContentsOfFile(path());
  if (!bytes && !NSFileManager::defaultManager().fileExistsAtPath(path())) bytes = create();
  if (bytes.length() == 0) return {};
  bridge::Object document = NSJSONSerialization::JSONObjectWithData_options_error(bytes, 0, nullptr);
  if (!bridge::isKindOf<NSDictionary>(document)) return {};
  bridge::Object list = bridge::as<NSDictionary>(document).objectForKey(listKey());
  return bridge::isKindOf<NSArray>(list) ? bridge::as<NSArray>(list) : NSArray{};
}

}  // namespace tilo::presets
