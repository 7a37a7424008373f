// UIImageView.
#pragma once

namespace sim::uikit {

void defineImageView();

}  // namespace sim::uikit
