// UIColor.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/color.hpp"
#include "simulator/quartz/color.hpp"

namespace sim::uikit {

/** Clear for nil. */
Color colorOf(UIColor color);
bridge::Strong<UIColor> makeColor(const Color& color);

void defineColor();

}  // namespace sim::uikit
