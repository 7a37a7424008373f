// Apple's way to tell how a frame is left, told in the way that Linux understands.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "device/tools/unwind_info.hpp"

namespace device::loader {

// The contents of a section .eh_frame, with the zeros at its end, for code that lies at `base`. Code without
// a frame calls nothing, so there is nothing to tell of it. Throws std::runtime_error, naming the encoding,
// for what is neither of the two.
std::vector<uint8_t> frameDescriptions(std::span<const Unwinding> table, uintptr_t base);

}  // namespace device::loader
