// What the process has by the name of an import, for what is crossed into as it stands.
#pragma once

#include <string>

namespace device::loader {

// By linker name; null when there is nothing of that name. Throws Refusal for a function that Linux has by
// the same name and that a slice cannot call as it stands.
void* asItStands(const std::string& symbol);

}  // namespace device::loader
