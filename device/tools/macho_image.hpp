// A Mach-O file read into plain values: what a loader would see, nothing judged.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace device {

// All addresses are those of the file, that is, relative to where the image was linked to.
struct Segment {
  uint64_t command = 0;  // where its load command is, from the start of the slice
  std::string name;
  uint64_t address = 0;
  uint64_t size = 0;  // bytes in memory
  uint64_t fileOffset = 0;
  uint64_t fileSize = 0;
  uint32_t protection = 0;  // when loaded: readable 1, writable 2, executable 4
};

struct Section {
  std::string segment;
  std::string name;
  uint64_t address = 0;
  uint64_t size = 0;    // bytes
  uint32_t offset = 0;  // from the start of the slice; 0 if the file holds no bytes of it
  uint8_t type = 0;     // the low byte of the section's flags
};

// A library that the image wants loaded.
struct LibraryLoad {
  std::string installName;
  uint32_t compatibilityVersion = 0;  // 16.8.8 bits
  bool mandatory = true;              // false for weak, re-exported, upward and lazy loads
};

// A pointer that the loader fills in with the address of a symbol.
struct Import {
  enum class Table { bind, lazyBind, weakBind };
  Table table = Table::bind;
  std::string name;
  int64_t ordinal = 0;  // 1 is the first LibraryLoad; 0 and below have special meanings
  bool weak = false;    // may be missing
};

// A run of bytes, from the start of the slice.
struct Extent {
  uint32_t offset = 0;
  uint32_t size = 0;
};

// The programs by which a loader fixes an image up, and the tree of its exports.
struct LoaderInfo {
  bool present = false;
  Extent rebases, bindings, weakBindings, lazyBindings, exports;
};

struct Symbol {
  std::string name;
  uint8_t type = 0;
  uint8_t section = 0;
  uint16_t description = 0;
  uint64_t value = 0;
};

struct Slice {
  std::string architecture;  // "arm64", "armv7", else "cpu <type>/<subtype>"
  std::string announced;     // the same as the universal file has it; empty in a thin one
  uint64_t start = 0;        // of the slice within the file
  bool is64 = false;
  uint64_t sizeInBytes = 0;  // of the slice within the file
  uint32_t fileType = 0;
  uint32_t minimumSystem = 0;  // 16.8.8 bits; 0 if the file names none
  bool forIOS = false;
  bool chainedFixups = false;
  bool encrypted = false;
  bool symbolTables = false;
  uint64_t commandsEnd = 0;  // from the start of the slice
  LoaderInfo loaderInfo;
  Extent strings;                  // the names of the symbols
  std::vector<Extent> signatures;  // as many as the load commands tell of
  std::string installName;
  std::vector<LibraryLoad> loads;
  std::vector<Segment> segments;
  std::vector<Section> sections;
  std::vector<Import> imports;
  std::vector<std::string> exports;
  std::vector<Symbol> symbols;
  std::vector<uint64_t> initialisers;          // the pointers of __mod_init_func, in order
  std::vector<uint64_t> fusedMultiplications;  // arm64: where an instruction multiplies and adds at once
};

constexpr uint32_t dynamicLibrary = 6;  // Slice::fileType
constexpr uint8_t initialiserPointers = 9, terminatorPointers = 10, initialiserOffsets = 22;  // Section::type
constexpr uint8_t lazyPointers = 7;
constexpr uint8_t firstThreadLocal = 17, lastThreadLocal = 21;
constexpr uint16_t thumbDefinition = 8;  // a bit of Symbol::description

// The slices of a universal file, or the one slice of a thin one. Throws std::runtime_error, saying what is
// wrong, for a file that is cut short or not a little-endian Mach-O.
std::vector<Slice> readImage(std::span<const uint8_t> bytes);
std::vector<Slice> readImage(const std::filesystem::path& file);

}  // namespace device
