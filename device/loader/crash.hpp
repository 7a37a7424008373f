// What is told when the process crashes with a slice in it.
#pragma once

#include <cstdint>
#include <string>

namespace device::loader {

// From now on a crash says on standard error which functions of the image at `base`, `size` bytes long, were
// being run, the innermost first, by the names that the file `symbols` has for them; then the process ends as
// it would have.
void nameCrashes(const uint8_t* base, uint64_t size, const std::string& symbols,
                 const std::string& architecture);

}  // namespace device::loader
