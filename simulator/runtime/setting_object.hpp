// Values of a command line as Foundation's objects.
#pragma once

#include "platform/foundation/object.hpp"
#include "simulator/device/setting.hpp"

namespace sim {

// A number or a string. Borrowed.
NSObject settingObject(const SettingValue& value);

}  // namespace sim
