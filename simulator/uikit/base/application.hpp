// UIApplication.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace sim::uikit {

/** The addresses that were opened, in order. */
const std::vector<std::string>& openedURLs();

/** From now on addresses that begin so are handed over; all others lead nowhere. */
void takeURLs(std::string beginning, std::function<void(const std::string&)> taker);

}  // namespace sim::uikit
