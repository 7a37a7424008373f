// Constant strings as compilers lay them out for Apple's systems, for Foundation on Linux.
#pragma once

namespace device::loader {

// The class that they are instances of.
void* constantStringClass();

}  // namespace device::loader
