// What is wrong with a Mach-O file's signatures. Stricter than any kernel: whatever byte of the file is
// another than it was when it was signed, something is found.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "device/tools/macho_image.hpp"

namespace device::signature {

// One line for each fault, that of a universal file beginning with the slice's name; none for a file that is
// signed as it has to be. Throws std::runtime_error for what is no Mach-O file.
std::vector<std::string> findings(std::span<const uint8_t> file);

// The same for one slice, of which `bytes` are the file's.
std::vector<std::string> findings(std::span<const uint8_t> bytes, const Slice& slice);

}  // namespace device::signature
