// Making icons.
#pragma once

#include <string>

#include "platform/springboard/icon.hpp"

namespace sim::springboard {

bridge::Strong<SBIcon> makeIcon(const std::string& name);

void defineIcon();

}  // namespace sim::springboard
