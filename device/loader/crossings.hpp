// Where a call from the slice into the process needs more than a jump: one implementation for each processor.
#pragma once

#include <map>
#include <string>

namespace device::loader {

// Entry points by the linker names of the imports that they stand for.
std::map<std::string, void*> crossings();

}  // namespace device::loader
