// The status bar: a window above everything else.
#pragma once

#include "simulator/quartz/color.hpp"

namespace sim::springboard {

// Puts it across the screen as it is turned now; call again when that changes, or what it is to be drawn in.
void showStatusBar(const Color& color = whiteColor);

}  // namespace sim::springboard
