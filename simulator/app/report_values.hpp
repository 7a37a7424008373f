// JSON values of what the simulator reports. Numbers that JSON has no form for are the strings "inf", "-inf",
// "nan".
#pragma once

#include "platform/coregraphics/geometry.hpp"
#include "platform/foundation/object.hpp"
#include "simulator/json/json.hpp"

namespace sim {

Json number(double value);
Json frame(const CGRect& rect);  // [x, y, width, height]

// A property list's or a JSON document's objects; keys in alphabetical order. Null for nil.
Json plain(bridge::Object object);

}  // namespace sim
