// CGColor's functions.
#include "simulator/coregraphics/color.hpp"

#include <algorithm>

#include "simulator/runtime/export.hpp"

namespace sim {

Color colorOf(const CGColor* color) {
  if (!color) return clearColor;
  std::array<CGFloat, 4> parts = color->components;
  for (CGFloat& part : parts) part = std::clamp<CGFloat>(part, 0, 1);
  return color->gray ? Color{parts[0], parts[0], parts[0], parts[1]}
                     : Color{parts[0], parts[1], parts[2], parts[3]};
}

}  // namespace sim

SIMULATOR_EXPORT size_t CGColorGetNumberOfComponents(CGColorRef color) {
  return color ? (color->gray ? 2 : 4) : 0;
}

SIMULATOR_EXPORT const CGFloat* CGColorGetComponents(CGColorRef color) {
  return color ? color->components.data() : nullptr;
}
