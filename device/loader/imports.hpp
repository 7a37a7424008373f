// What a slice's imports are bound to in the simulator's process.
#pragma once

#include <string>

namespace device::loader {

// By linker name. What is crossed into as it stands is found in the process by its C name; what Linux does
// otherwise, or does not have, is a function of the loader's. Null when there is neither. Throws Refusal for
// what needs a function of the loader's that is not there.
void* importNamed(const std::string& symbol);

// dlsym, as the slice calls it with its own number for all images.
void* symbolNamed(void* image, const char* name);

}  // namespace device::loader
