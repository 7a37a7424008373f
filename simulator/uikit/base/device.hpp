// UIDevice.
#pragma once

namespace sim::uikit {

/** Tells whoever listens that the device was turned. */
void postDeviceOrientation();

}  // namespace sim::uikit
