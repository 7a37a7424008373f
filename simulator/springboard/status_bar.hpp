// The status bar: a window above everything else.
#pragma once

#include "simulator/quartz/color.hpp"

namespace sim::springboard {

// Puts it across the screen, drawn in that color.
void showStatusBar(const Color& color = whiteColor);

// Across the screen as it is turned now.
void turnStatusBar();

}  // namespace sim::springboard
