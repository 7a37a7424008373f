// The status bar of the home screen.
#pragma once

#include <cairo.h>

#include <string>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/color.hpp"

namespace sim {

struct StatusBarState {
  std::string time = "9:41";
  double battery = 1;        // charge, 0 to 1
  bool cellular = true;      // whether signal bars are shown
  Color color = whiteColor;  // of text and symbols
};

/**
 * Draws over (0,0) to `size`, in points. A bar of 40 points and more is that of a screen with a notch: the
 * time stands in the left corner, the symbols in the right one. Otherwise the time is centred, the signal on
 * the left, the battery with its percentage on the right.
 */
void drawStatusBar(cairo_t* context, CGSize size, const StatusBarState& state = {});

}  // namespace sim
