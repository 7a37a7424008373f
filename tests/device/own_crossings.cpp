// Crossings between this machine's code and itself: it is called as it stands.
#include "device/loader/crossings.hpp"

namespace device::loader {

void* asImport(void* found) { return found; }
void* ofSlice(void* function) { return function; }
std::map<std::string, void*> crossings() { return {}; }

}  // namespace device::loader
