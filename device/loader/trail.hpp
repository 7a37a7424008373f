// Which code led a thread to where it was interrupted: Linux's frames tell on arm64, the stack alone on
// armv7.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace device::loader {

// Where an image is in memory. What lies before it is further away than it is long.
struct Place {
  uintptr_t base = 0;
  uint64_t size = 0;

  bool holds(uintptr_t address) const { return address - base < size; }
};

// Registers of a thread, and where its stack ends.
struct Interrupted {
  uintptr_t code = 0, link = 0;
  const uintptr_t *frame = nullptr, *stack = nullptr, *end = nullptr;
};

// Where it was, then where it would have returned to, the innermost first, 64 at most. Each frame begins with
// where the one around it does, and where it returns to.
std::vector<uintptr_t> trailOfFrames(const Interrupted& thread);

// The same where there are no frames: what is on the stack and comes after a call in the image is taken for a
// place to return to. One may be left over from before.
std::vector<uintptr_t> trailOfCalls(const Interrupted& thread, const Place& image);

}  // namespace device::loader
