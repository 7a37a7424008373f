// What stands behind --set: whatever the bytes, a value of one kind, or a refusal.
#include <string_view>

#include "simulator/device/setting.hpp"
#include "simulator/device/usage_error.hpp"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  try {
    sim::parseSetting({reinterpret_cast<const char*>(bytes), length});
  } catch (const sim::UsageError&) {
  }
  return 0;
}
