// Preferences files.
#include "simulator/app/preference_file.hpp"

#include "platform/foundation/dictionary.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/runtime/property_list.hpp"
#include "simulator/runtime/setting_object.hpp"

namespace sim {
namespace {

NSString string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

bridge::Strong<NSMutableDictionary> readPreferenceFile(const std::string& file) {
  NSDictionary read = propertyList(string(file));
  if (!read) throw UsageError("'" + file + "' is not a property list of keys and values");
  return read.mutableCopy();
}

}  // namespace

void checkPreferenceFile(const std::string& file) {
  bridge::Pool pool;
  readPreferenceFile(file);
}

void writePreferenceFile(const std::string& file, const std::string& base,
                         const std::vector<Setting>& settings) {
  bridge::Pool pool;
  auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
  if (!base.empty()) {
    values = readPreferenceFile(base);
  }
  for (const Setting& setting : settings)
    values->setObject_forKey(settingObject(setting.value), string(setting.key));
  if (!values->writeToFile_atomically(string(file), YES)) throw UsageError("cannot write '" + file + "'");
}

}  // namespace sim
