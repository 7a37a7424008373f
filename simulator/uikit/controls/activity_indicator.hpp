// UIActivityIndicatorView.
#pragma once

namespace sim::uikit {

void defineActivityIndicator();

}  // namespace sim::uikit
