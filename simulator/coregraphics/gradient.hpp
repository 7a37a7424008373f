// CGGradient and CGColorSpace.
#pragma once

#include <vector>

#include "platform/coregraphics/context.hpp"
#include "simulator/quartz/color.hpp"

namespace sim {

// Gradients and colour spaces that were made and that nobody has released yet.
inline int heldGradients = 0;

}  // namespace sim

/** Red, green and blue as the screen shows them. */
struct CGColorSpace {
  CGColorSpace() { ++sim::heldGradients; }
  ~CGColorSpace() { --sim::heldGradients; }
  CGColorSpace(const CGColorSpace&) = delete;
  CGColorSpace& operator=(const CGColorSpace&) = delete;

  int references = 1;
};

struct CGGradient {
  CGGradient() { ++sim::heldGradients; }
  ~CGGradient() { --sim::heldGradients; }
  CGGradient(const CGGradient&) = delete;
  CGGradient& operator=(const CGGradient&) = delete;

  struct Stop {
    double place;  // 0 to 1
    sim::Color color;
  };

  std::vector<Stop> stops;
  int references = 1;
};
