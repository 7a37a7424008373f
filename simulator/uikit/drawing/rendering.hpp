// What is on the screen.
#pragma once

#include "simulator/quartz/screen.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim::uikit {

/** Lays out what is due in every window. Throws std::runtime_error when layout keeps asking for more layout.
 */
void layoutPass();

/**
 * The screen at `now` (seconds), after a layout pass: an ARGB32 image of the panel's pixels as the interface
 * is turned, the visible windows over black. Throws std::runtime_error.
 */
Surface renderScreen(double now);
/** The same on a screen of one's own, which tells where it differs from what was drawn on it before. */
Surface renderScreen(double now, PaintedScreen& screen);

}  // namespace sim::uikit
