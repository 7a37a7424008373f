// One kind of object for each kind of value.
#include "simulator/runtime/setting_object.hpp"

#include "platform/foundation/number.hpp"
#include "platform/foundation/string.hpp"

namespace sim {
namespace {

struct Maker {
  NSObject operator()(bool value) const { return NSNumber::numberWithBool(value); }
  NSObject operator()(long long value) const { return NSNumber::numberWithLongLong(value); }
  NSObject operator()(double value) const { return NSNumber::numberWithDouble(value); }
  NSObject operator()(const std::string& value) const {
    return NSString::stringWithUTF8String(value.c_str());
  }
};

}  // namespace

NSObject settingObject(const SettingValue& value) { return std::visit(Maker{}, value); }

}  // namespace sim
