// UIScreen.
#pragma once

namespace sim::uikit {

void defineScreen();

}  // namespace sim::uikit
