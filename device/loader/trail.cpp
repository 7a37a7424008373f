// Reads a stack that may be in any state: no further than its end, and no more than a number of times.
#include "device/loader/trail.hpp"

#include <utility>

namespace device::loader {
namespace {

constexpr size_t most = 64;

// "bl" and "blx", done under any circumstances.
bool isCall(uint32_t instruction) {
  return instruction >> 24 == 0xeb || (instruction & 0xfffffff0) == 0xe12fff30;
}

}  // namespace

std::vector<uintptr_t> trailOfFrames(const Interrupted& thread) {
  std::vector<uintptr_t> found{thread.code, thread.link - 1};
  const uintptr_t* inner = thread.stack - 1;
  for (const uintptr_t* at = thread.frame; at > inner && at + 1 < thread.end && found.size() < most;) {
    found.push_back(at[1] - 1);
    inner = std::exchange(at, reinterpret_cast<const uintptr_t*>(*at));
  }
  return found;
}

std::vector<uintptr_t> trailOfCalls(const Interrupted& thread, const Place& image) {
  std::vector<uintptr_t> found{thread.code, thread.link - 1};
  for (const uintptr_t* at = thread.stack; at < thread.end && found.size() < most; ++at) {
    const uintptr_t call = *at - 4;
    if (call % 4 == 0 && image.holds(call) && isCall(*reinterpret_cast<const uint32_t*>(call)))
      found.push_back(*at - 1);
  }
  return found;
}

}  // namespace device::loader
