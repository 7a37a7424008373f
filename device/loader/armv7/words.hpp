// Arguments on armv7 are one row of words, the first four in registers: on Apple's systems without gaps, on
// Linux with 64-bit values at even places.
#pragma once

#include <cstdint>
#include <vector>

namespace device::loader {

enum class Side { apple, linux };

// For each word of a call as `to` lays it out: which word it is as `from` does.
using WordMap = std::vector<uint32_t>;

// Of a method or block of that encoding, in which the place for a large result comes first.
WordMap wordMap(const char* types, Side from, Side to);

// Of `count` words, all below 64 bits.
WordMap plainWords(uint32_t count);

}  // namespace device::loader
