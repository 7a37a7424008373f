// Methods, messages and blocks that cross between the slice and the process.
#pragma once

#include <map>
#include <string>

namespace device::loader {

// The imports that take or give implementations, send messages or copy blocks, by their linker names.
std::map<std::string, void*> messageCrossings();

}  // namespace device::loader
