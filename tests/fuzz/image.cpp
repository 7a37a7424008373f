// Mach-O files and their signatures: whatever the bytes, findings or a refusal.
#include <stdexcept>

#include "device/signature/verify.hpp"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  const std::span<const uint8_t> file(bytes, length);
  try {
    device::signature::findings(file);
  } catch (const std::runtime_error&) {
  }
  return 0;
}
