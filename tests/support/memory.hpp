// How much memory the test's process holds.
#pragma once

#include <cstddef>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TEST_COUNTS_MEMORY
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif
#endif

namespace test {

// Bytes that are allocated; 0 where nobody counts them.
inline size_t allocatedBytes() {
#ifdef TEST_COUNTS_MEMORY
  return __sanitizer_get_current_allocated_bytes();
#else
  return 0;
#endif
}

}  // namespace test
