// The list of what may be imported from one library of the system; the folder of such lists decides what the
// device library can be linked with at all.
//
// A list is a text file. '#' starts a comment. Two headings come first, each once:
//   install-name <path>               the path that the library is loaded by
//   compatibility-version <a.b.c>     the lowest version that the loader may find
// then one symbol a line, under its linker name, followed by a slice's name if only that slice imports it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace device {

// A symbol as imported by one slice or, with `slice` empty, by every slice.
struct ListedSymbol {
  std::string name;
  std::string slice;
};

struct ImportList {
  std::string library;  // the list's file name without extension
  std::string installName;
  uint32_t compatibilityVersion = 0;  // 16.8.8 bits, as in the file format
  std::vector<ListedSymbol> symbols;
};

// "1.2.3" from 16.8.8 bits.
std::string versionText(uint32_t version);

// Throws std::runtime_error, naming file and line, if the list is malformed, names a symbol twice or cannot
// be read.
ImportList readImportList(const std::filesystem::path& file);

// Every *.txt of `folder`, in the order of the file names. Throws as readImportList does, and if two lists
// name the same symbol or the same install name.
std::vector<ImportList> readImportLists(const std::filesystem::path& folder);

}  // namespace device
