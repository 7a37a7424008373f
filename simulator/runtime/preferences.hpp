// The preference domains, each a property list on the device's file system.
#pragma once

#include "platform/foundation/dictionary.hpp"

namespace sim {

// All values of a domain as another process would read them; nil when there are none. Borrowed.
NSDictionary preferenceDomain(NSString domain);

// Sets one value, or removes it (nil), as CFPreferencesSetValue does. False when the value is kept in this
// process's memory only, since the file cannot be parsed or the disk refuses it.
bool setPreference(NSString domain, NSString key, bridge::Object value);

}  // namespace sim
