// UIPickerView.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/picker_view.hpp"

namespace sim::uikit {

/** How the first wheel stands, in points: how far its rim has turned, and the height of a row on it. */
struct WheelPosition {
  double position, rowHeight;
};
WheelPosition wheelOf(UIPickerView picker);

}  // namespace sim::uikit
