// How deep a property list is nested, and whether it is all there, told before anybody reads it.
#pragma once

#include <string_view>

namespace sim {

// Whether a reader that calls itself for every list in a list comes to an end: no more than 512 levels, and
// in the binary form, where many places may name one list, no more than a million objects all told, each of
// them whole and before the table of their places.
bool isNestedSanely(std::string_view propertyList);

}  // namespace sim
