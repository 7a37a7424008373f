// JSON values of what the simulator reports. Numbers that JSON has no form for are the strings "inf", "-inf",
// "nan".
#pragma once

#include <nlohmann/json.hpp>

#include "platform/coregraphics/geometry.hpp"
#include "platform/foundation/object.hpp"

namespace sim {

using Json = nlohmann::ordered_json;

Json number(double value);
Json frame(const CGRect& rect);  // [x, y, width, height]

// A property list's or a JSON document's objects; keys in alphabetical order. Null for nil.
Json plain(bridge::Object object);

}  // namespace sim
