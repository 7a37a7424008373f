// On a device's processor the loader of its slices tells of faults.
#include "simulator/crash/crash.hpp"

namespace sim::crash {

void tellOfFaults() {}

}  // namespace sim::crash
