// The dock's list of icons.
#pragma once

#include "platform/springboard/dock.hpp"

namespace sim::springboard {

// One row (a column where the dock stands upright) of as many places as the list says, spread over its
// length.
void placeDockIcons(SBDockIconListView list);

void defineDockIconListView();

}  // namespace sim::springboard
