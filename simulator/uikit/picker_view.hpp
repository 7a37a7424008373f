// UIPickerView.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/picker_view.hpp"

namespace sim::uikit {

void definePickerView();

}  // namespace sim::uikit
