// Calls as the slice makes them: on a stack that is aligned to a word only.
#pragma once

#include <array>
#include <cstdint>

namespace test {

using Words = std::array<uint32_t, 12>;

struct Answer {
  uint64_t result = 0;
  // Registers 4, 5, 9 and 11 afterwards, where they held 104, 105, 109 and 111.
  std::array<uint32_t, 4> kept{};
};

Answer callAsTheSlice(void* function, const Words& words);

}  // namespace test

// How many bytes whoever calls this has the stack away from where Linux wants it.
extern "C" uint32_t misalignmentOfTheStack();
