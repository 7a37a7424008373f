// UIControl.
#pragma once

namespace sim::uikit {

void defineControl();

}  // namespace sim::uikit
