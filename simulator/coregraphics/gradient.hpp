// CGGradient and CGColorSpace.
#pragma once

#include <vector>

#include "platform/coregraphics/context.hpp"
#include "simulator/quartz/color.hpp"

/** Red, green and blue as the screen shows them. */
struct CGColorSpace {
  int references = 1;
};

struct CGGradient {
  struct Stop {
    double place;  // 0 to 1
    sim::Color color;
  };

  std::vector<Stop> stops;
  int references = 1;
};
