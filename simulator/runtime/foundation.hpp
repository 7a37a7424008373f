// Making GNUstep's Foundation behave as the device's does.
#pragma once

namespace sim {

// Call once, before anything else uses Foundation.
void prepareFoundation();

}  // namespace sim
