// The cross in a text field that takes its text away.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/text_field.hpp"

namespace sim::uikit {

/** Points; as high as its field. */
inline constexpr CGFloat clearButtonWidth = 29;

bridge::Strong<UIControl> makeClearButton();

void defineClearButton();

}  // namespace sim::uikit
