// The small drawings at the right end of rows.
#pragma once

#include "platform/uikit/view.hpp"

namespace sim::preferences {

inline constexpr CGFloat chevronWidth = 8, chevronHeight = 13, checkSize = 14;

/** A row that leads to another page. */
bridge::Strong<UIView> makeChevron();
/** The row that is chosen. */
bridge::Strong<UIView> makeCheck();

}  // namespace sim::preferences
