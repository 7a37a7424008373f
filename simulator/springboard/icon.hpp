// Icons.
#pragma once

#include <string>

#include "platform/springboard/icon.hpp"

namespace sim::springboard {

bridge::Strong<SBIcon> makeIcon(const std::string& name);

// Its name, by whichever message the version in use tells it.
NSString nameOf(SBIcon icon);

void defineIcon();

}  // namespace sim::springboard
