// UIScrollView.
#pragma once

namespace sim::uikit {

void defineScrollView();

}  // namespace sim::uikit
