// UIDevice.
#pragma once

namespace sim::uikit {

void defineDevice();

}  // namespace sim::uikit
