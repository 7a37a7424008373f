// UIDevice.
#pragma once

namespace sim::uikit {

void defineDevice();

/** Tells whoever listens that the device was turned. */
void postDeviceOrientation();

}  // namespace sim::uikit
