// Where an image's bytes of code are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "device/tools/macho_image.hpp"

namespace device {

struct Function {
  uint64_t size = 0;  // bytes up to the next symbol
  std::string name;   // as it is written in C++
};

// The largest of a slice that has its local symbols, the largest first.
std::vector<Function> largestFunctions(const Slice& slice, size_t count);

}  // namespace device
