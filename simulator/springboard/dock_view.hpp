// The dock's panel.
#pragma once

#include "platform/springboard/dock.hpp"

namespace sim::springboard {

// A dock of `size` with `list` on it.
bridge::Strong<SBDockView> makeDockView(SBDockIconListView list);

void defineDockView();

}  // namespace sim::springboard
