// SpringBoard as a whole: its classes, its start, the turning of the device.
#pragma once

#include "simulator/device/catalogue.hpp"

namespace sim::springboard {

// Before the library is loaded, which replaces methods of these classes.
void defineClasses();

// How much the home screen holds: at least `pages` pages. `icons` below zero: as many as fill that many pages
// of the stock grid.
struct Contents {
  int pages = 3;
  int icons = -1;
};

// Builds the home screen and brings it on screen, as it happens after the library was loaded.
void start(const Contents& contents);

// How long the home screen takes to turn.
inline constexpr double rotationDuration = 0.4;  // seconds

// Turns the device; where the home screen does not turn nothing happens and the answer is false. The icons
// are on their way when it returns: call `finishRotation` with the orientation that was left when the time
// has passed.
bool beginRotation(Orientation to);
void finishRotation(Orientation from);

Orientation orientation();

}  // namespace sim::springboard
