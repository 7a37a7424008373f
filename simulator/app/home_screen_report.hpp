// What the report says of the home screen's own parts.
#pragma once

#include "simulator/app/json.hpp"

namespace sim {

Json reportPages();
Json reportFolder();
Json reportDock();
Json reportPageDots();

}  // namespace sim
