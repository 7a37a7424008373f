// Linked into a library that holds many changes of one source: which of them the process is to have, 0 for
// none.
#include <cstdlib>

extern "C" __attribute__((visibility("hidden"))) int tiloChange;
int tiloChange = 0;

namespace {

// Before anything that might be changed runs.
__attribute__((constructor(101))) void choose() {
  const char* const number = std::getenv("TILO_CHANGE");
  tiloChange = number ? std::atoi(number) : 0;
}

}  // namespace
