// The calls of SpringBoard's relayout entry points, those of late. SpringBoard itself makes none.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace sim::springboard {

struct Relayout {
  int page;          // -1: not a page of the home screen
  double duration;   // seconds
  std::string call;  // "domino" or "animationType"
  double at;         // seconds since the start
};

/** Writes one down. From the first on, all take the same memory. */
void noteRelayout(Relayout call);

/** The last thousand, in their order. */
std::vector<Relayout> relayouts();
/** How many were before these. */
std::size_t relayoutsLeftOut();

}  // namespace sim::springboard
