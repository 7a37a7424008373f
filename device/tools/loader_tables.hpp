// The compressed tables that tell the loader what to fill in and what the image offers.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "device/tools/macho_image.hpp"

namespace device {

// A pointer of the image, by its segment and how far into that it lies.
struct Place {
  size_t segment = 0;
  uint64_t offset = 0;
};

// A pointer to a symbol of another image.
struct Binding {
  Place place;
  Import import;
  int64_t addend = 0;
};

struct Export {
  std::string name;
  uint64_t address = 0;
};

// All of these throw std::runtime_error for what loaders of iOS 9 do not know.

// The pointers to places within the image, in the order of the program. `word` is a pointer's size.
std::vector<Place> readRebases(std::span<const uint8_t> opcodes, size_t word);

// The pointers to other images', in the order of the program.
std::vector<Binding> readBindings(std::span<const uint8_t> opcodes, Import::Table table, size_t word);

// The imports of a program of bindings, one for each symbol and library, in the order of first use; those,
// too, that it names and does not bind.
std::vector<Import> readImports(std::span<const uint8_t> opcodes, Import::Table table);

// What an export trie offers, in its order.
std::vector<Export> readExports(std::span<const uint8_t> trie);

}  // namespace device
