// What the report tells of the alert in front.
#pragma once

#include "simulator/app/report_values.hpp"

namespace sim {

// Null when there is none.
Json reportAlert();

}  // namespace sim
