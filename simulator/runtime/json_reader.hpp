// Texts in JSON as Foundation's objects.
#pragma once

#include <string_view>

#include "bridge/strong.hpp"

namespace sim {

// Nil for what is no JSON in UTF-8, or is nested deeper than `deepest`. Numbers are doubles, whole or not.
bridge::Strong<bridge::Object> readJsonText(std::string_view text, int deepest);

}  // namespace sim
