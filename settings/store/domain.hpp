// The preference domain, all at once.
#pragma once

#include "platform/foundation/dictionary.hpp"

namespace tilo {

inline NSString domain() { return "com.wexor.tilo"_ns; }

// Brings in what other processes wrote, and out what this one did; false when the latter could not be kept.
bool synchroniseDomain();

// As they were when last synchronised; nil when there are none.
NSDictionary valuesOfDomain();

// Stores values and removes keys, in one. False when they could not be kept.
bool storeInDomain(NSDictionary values, NSArray removedKeys);

}  // namespace tilo
