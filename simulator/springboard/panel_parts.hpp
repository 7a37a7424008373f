// SpringBoard's chevrons and close boxes, which others show on panels of their own.
#pragma once

namespace sim::springboard {

// Each under the class name that the system version in use has for it.
void defineChevron();
void defineCloseBox();

}  // namespace sim::springboard
