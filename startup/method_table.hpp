// Every method of SpringBoard that the library replaces or adds.
#pragma once

#include "bridge/replace.hpp"

extern "C" {
// What became of each row of the table, in its order; a row without names ends them, which is the first one
// until the table is installed.
__attribute__((visibility("default"))) extern bridge::Outcome hookOutcomes[];
}

namespace tilo {

// Installs the table, row by row in its order, and tells the system log which of its rows find nothing in
// this system.
void installMethods();

}  // namespace tilo
