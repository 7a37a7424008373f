// The picture of an icon.
#pragma once

#include <string>

#include "platform/springboard/icon.hpp"

namespace sim::springboard {

// Shows the artwork of the application of that name.
bridge::Strong<SBIconImageView> makeIconImageView(const std::string& name);

void defineIconImageView();

}  // namespace sim::springboard
