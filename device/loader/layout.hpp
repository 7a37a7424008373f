// What the device's loader makes of a slice before a byte of it is in memory: where its parts go, which of
// its pointers are filled in with what, what it offers. As strict as the strictest of the loaders of iOS 9 to
// 12; repairs nothing.
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "device/tools/loader_tables.hpp"
#include "device/tools/policy.hpp"
#include "device/tools/unwind_info.hpp"

namespace device::loader {

// Why an image is not loaded.
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A segment; addresses count from the image's start.
struct Piece {
  std::string name;
  uint64_t address = 0;
  uint64_t size = 0;               // in memory; zeros where the file has no bytes
  std::span<const uint8_t> bytes;  // of the file
  uint32_t protection = 0;         // readable 1, writable 2, executable 4
};

// A pointer to something that another library exports.
struct Filling {
  uint64_t address = 0;
  std::string symbol;   // its linker name
  std::string library;  // its install name
  int64_t addend = 0;
};

struct Layout {
  size_t word = 0;    // bytes of a pointer
  uint64_t size = 0;  // of the whole image in memory
  std::vector<Piece> pieces;
  std::vector<uint64_t> rebases;  // addresses of pointers into the image
  std::vector<Filling> fillings;
  std::vector<uint64_t> initialisers;
  std::vector<Export> exports;
  std::vector<Unwinding> unwinding;  // empty for an armv7 slice
};

// Lays out the slice for `architecture` of a universal file, which `layout` goes on pointing into. Imports
// are those that the policy's lists allow, by name and library. Throws Refusal.
Layout layOut(std::span<const uint8_t> file, std::string_view architecture, const Policy& policy);

}  // namespace device::loader
