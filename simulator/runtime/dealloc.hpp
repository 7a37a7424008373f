// Being told when objects die.
#pragma once

#include "bridge/runtime.hpp"

namespace sim {

// Calls `observer` with every object that is about to be deallocated, for the life of the process.
void whenObjectsDie(void (*observer)(id));

}  // namespace sim
