// Every call of SpringBoard's relayout entry points. SpringBoard itself makes none.
#pragma once

#include <string>
#include <vector>

namespace sim::springboard {

struct Relayout {
  int page;          // -1: not a page of the home screen
  double duration;   // seconds
  std::string call;  // "domino" or "animationType"
  double at;         // seconds since the start
};

std::vector<Relayout>& relayouts();

}  // namespace sim::springboard
