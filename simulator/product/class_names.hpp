// Classes of the library, by the names that they have or would have.
#pragma once

#include "bridge/object.hpp"

namespace sim::product {

// Whether the object is of a class of that name, or of one that somebody else took the name from:
// "BButton.2".
bool isKindOfNamed(bridge::Object object, const char* name);

}  // namespace sim::product
