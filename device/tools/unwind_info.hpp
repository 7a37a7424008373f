// The compact table by which a handler above finds its way through an image's frames.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace device {

// Code that leaves its frame in one way, up to the next one's. Addresses count from the image's start.
struct Unwinding {
  uint64_t address = 0;
  uint32_t encoding = 0;  // in the processor's own form; 0 where nothing is told

  bool operator==(const Unwinding&) const = default;
};

// What a section __unwind_info tells, in the order of addresses; the last tells where the code ends. Throws
// std::runtime_error for one that is cut short, or of a form that systems before iOS 13 do not know.
std::vector<Unwinding> readUnwindInfo(std::span<const uint8_t> section);

}  // namespace device
