// UIApplication.
#pragma once

#include <string>
#include <vector>

namespace sim::uikit {

/** The addresses that were opened, in order. */
const std::vector<std::string>& openedURLs();

}  // namespace sim::uikit
