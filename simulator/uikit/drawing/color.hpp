// UIColor.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/color.hpp"
#include "simulator/coregraphics/color.hpp"

namespace sim::uikit {

/** As the screen shows it; clear for nil. */
Color colorOf(UIColor color);
using sim::colorOf;
/** One of red, green and blue, even where they are equal. */
bridge::Strong<UIColor> makeColor(const Color& color);

}  // namespace sim::uikit
