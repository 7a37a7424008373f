// What the shipped image has to look like, and every way in which one does not.
#pragma once

#include <string>
#include <vector>

#include "device/tools/import_list.hpp"
#include "device/tools/macho_image.hpp"

namespace device {

// What may differ from image to image; the rest of the rules are in policy.cpp.
struct Policy {
  std::vector<ImportList> imports;   // what may be imported, from where
  std::vector<std::string> exports;  // what must be exported, nothing else, under linker names
  std::string installName = "/Library/MobileSubstrate/DynamicLibraries/Tilo.dylib";
  // The constructor and the static initialiser that takes the gesture controller.
  std::size_t initialisers = 2;
};

// One line for each rule broken, starting with the slice and naming the culprit; none for an image fit to
// ship.
std::vector<std::string> findings(const std::vector<Slice>& image, const Policy& policy);

// The same for one slice alone.
std::vector<std::string> findings(const Slice& slice, const Policy& policy);

// One line for each symbol of the lists that its slices do not import: lists hold what is used.
std::vector<std::string> unusedImports(const std::vector<Slice>& image, const Policy& policy);

}  // namespace device
