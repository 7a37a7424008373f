// UIButton.
#pragma once

namespace sim::uikit {

void defineButton();

}  // namespace sim::uikit
