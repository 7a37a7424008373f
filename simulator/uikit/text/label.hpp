// UILabel.
#pragma once

namespace sim::uikit {

void defineLabel();

}  // namespace sim::uikit
