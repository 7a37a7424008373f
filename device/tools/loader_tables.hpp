// The compressed tables that tell the loader what to fill in and what the image offers.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "device/tools/macho_image.hpp"

namespace device {

// The imports of a program of bind opcodes, one for each symbol and library, in the order of first use.
// Throws std::runtime_error for an opcode that loaders of iOS 9 do not know.
std::vector<Import> readBindings(std::span<const uint8_t> opcodes, Import::Table table);

// The names in an export trie, in its order.
std::vector<std::string> readExports(std::span<const uint8_t> trie);

}  // namespace device
