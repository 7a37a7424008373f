// The preference domains, each a property list on the device's file system.
#pragma once

#include "platform/foundation/dictionary.hpp"

namespace sim {

// All values of a domain as another process would read them; nil when there are none. Borrowed.
NSDictionary preferenceDomain(NSString domain);

}  // namespace sim
