// CGColor.
#pragma once

#include <array>

#include "platform/coregraphics/color.hpp"
#include "simulator/quartz/color.hpp"

/** The components of a colour: a grey has its level and alpha, any other red, green, blue and alpha. */
struct CGColor {
  std::array<CGFloat, 4> components{};
  bool gray = false;

  bool operator==(const CGColor&) const = default;
};

namespace sim {

/** As the screen shows it, whatever the range of its components; clear for null. */
Color colorOf(const CGColor* color);

}  // namespace sim
