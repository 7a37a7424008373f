// JSON texts as the device reads and writes them.
#pragma once

namespace sim {

// From now on NSJSONSerialization takes no texts that GNUstep alone would take, and leaves out the blanks
// that GNUstep alone puts in. Call once.
void useDeviceJson();

}  // namespace sim
