// UIColor.
#pragma once

#include <array>

#include "bridge/strong.hpp"
#include "platform/uikit/color.hpp"
#include "simulator/quartz/color.hpp"

/** The components of a colour: a grey has its level and alpha, any other red, green, blue and alpha. */
struct CGColor {
  std::array<CGFloat, 4> components{};
  bool gray = false;

  bool operator==(const CGColor&) const = default;
};

namespace sim::uikit {

/** Clear for nil. */
Color colorOf(UIColor color);
/** Clear for null. */
Color colorOf(const CGColor* color);
/** One of red, green and blue, even where they are equal. */
bridge::Strong<UIColor> makeColor(const Color& color);

void defineColor();

}  // namespace sim::uikit
