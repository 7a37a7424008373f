// The steps that use a row of the panel: a caption, a slider below it, its buttons and its number field.
#pragma once

#include "simulator/input/script.hpp"

namespace sim {

/** Throws UsageError that names the step's place when the row does not let itself be used so. */
void performRow(const Step& step);

}  // namespace sim
