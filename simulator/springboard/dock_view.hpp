// The dock's panel.
#pragma once

#include "platform/springboard/dock.hpp"

namespace sim::springboard {

// A dock with `list` on it, to be given a frame.
bridge::Strong<SBDockView> makeDockView(SBDockIconListView list);

// The panel behind the icons.
UIView dockBackground(SBDockView view);

void defineDockView();

}  // namespace sim::springboard
