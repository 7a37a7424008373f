// What the report says of the home screen's own parts.
#pragma once

#include "simulator/app/report_values.hpp"

namespace sim {

Json reportPages();
Json reportFolder();
Json reportDock();
Json reportPageDots();

}  // namespace sim
