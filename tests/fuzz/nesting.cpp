// How deep a property list is nested, told before anybody reads it: of any bytes, and in time.
#include <string_view>

#include "simulator/runtime/property_list_nesting.hpp"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  sim::isNestedSanely({reinterpret_cast<const char*>(bytes), length});
  return 0;
}
