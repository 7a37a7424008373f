// macho_check: says what is wrong with a built device library, one line a finding, and ends with 1 if
// anything is.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <vector>

#include "device/tools/largest_functions.hpp"
#include "device/tools/macho_image.hpp"
#include "device/tools/policy.hpp"

namespace {

std::vector<std::string> readNames(const std::string& file) {
  std::ifstream in(file);
  if (!in) throw std::runtime_error(file + ": cannot be read");
  std::vector<std::string> names;
  for (std::string name; in >> name;) names.push_back(name);
  return names;
}

}  // namespace

int main(int count, char** arguments) {
  CLI::App app("Checks a universal dynamic library before it ships.");
  std::string image, imports, exports;
  device::Policy policy;
  bool sizes = false, unused = false;
  size_t largest = 0;
  app.add_option("image", image, "the library")->required();
  app.add_option("--imports", imports, "folder of the lists of allowed imports")->required();
  app.add_option("--exports", exports, "file naming the exported symbols")->required();
  app.add_option("--install-name", policy.installName, "where the library lies on the device");
  app.add_option("--initialisers", policy.initialisers, "how many load-time routines it has");
  app.add_flag("--sizes", sizes, "print the size of each slice, in bytes");
  app.add_option("--largest", largest,
                 "print so many of each slice's functions, the largest, with their bytes");
  app.add_flag("--unused", unused, "a listed symbol that nothing imports is a finding too");
  CLI11_PARSE(app, count, arguments);
  try {
    policy.imports = device::readImportLists(imports);
    policy.exports = readNames(exports);
    auto slices = device::readImage(image);
    auto lines = device::findings(slices, policy);
    if (unused)
      for (auto& line : device::unusedImports(slices, policy)) lines.push_back(std::move(line));
    if (sizes)
      for (const auto& slice : slices) fmt::print("{} {}\n", slice.architecture, slice.sizeInBytes);
    for (const auto& slice : slices)
      for (const auto& function : device::largestFunctions(slice, largest))
        fmt::print("{} {} {}\n", slice.architecture, function.size, function.name);
    for (const auto& line : lines) fmt::print("{}\n", line);
    return lines.empty() ? 0 : 1;
  } catch (const std::exception& error) {
    fmt::print("{}: {}\n", image, error.what());
    return 1;
  }
}
