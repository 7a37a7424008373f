// Preferences files.
#include "simulator/app/preference_file.hpp"

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

NSString string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

struct PropertyListObject {
  NSObject operator()(bool value) const { return NSNumber::numberWithBool(value); }
  NSObject operator()(long long value) const { return NSNumber::numberWithLongLong(value); }
  NSObject operator()(double value) const { return NSNumber::numberWithDouble(value); }
  NSObject operator()(const std::string& value) const { return string(value); }
};

}  // namespace

void writePreferenceFile(const std::string& file, const std::string& base,
                         const std::vector<Setting>& settings) {
  bridge::Pool pool;
  auto values = bridge::make<NSMutableDictionary, &NSObject::init>();
  if (!base.empty()) {
    NSDictionary read = NSDictionary::dictionaryWithContentsOfFile(string(base));
    if (!read) throw UsageError("'" + base + "' is not a property list of keys and values");
    values = read.mutableCopy();
  }
  for (const Setting& setting : settings)
    values->setObject_forKey(std::visit(PropertyListObject{}, setting.value), string(setting.key));
  if (!values->writeToFile_atomically(string(file), YES)) throw UsageError("cannot write '" + file + "'");
}

}  // namespace sim
