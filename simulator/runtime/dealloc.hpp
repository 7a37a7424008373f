// Being told when objects die.
#pragma once

#include "bridge/runtime.hpp"

namespace sim {

// Calls `observer` with every object that is about to be deallocated, for the life of the process.
void whenObjectsDie(void (*observer)(id));

// The same with those that have been marked, and with some that have not: of all that die hardly any is of
// interest to somebody. Who marks an object holds it, or has been given it by who does.
void whenMarkedObjectsDie(void (*observer)(id));
void mark(id object);

}  // namespace sim
