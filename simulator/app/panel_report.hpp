// What the report tells of the panel.
#pragma once

#include "simulator/app/report_values.hpp"

namespace sim {

/** Null when no panel is on screen. Places, alphas and colours are those of this moment. */
Json reportPanel();

}  // namespace sim
