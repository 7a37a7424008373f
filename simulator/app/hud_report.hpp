// The notice box on screen.
#pragma once

#include "simulator/app/report_values.hpp"

namespace sim {

/** Text, mode and alpha of the foremost notice box; null when none is shown. */
Json reportHud();

}  // namespace sim
