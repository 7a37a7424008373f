// Names of functions by their addresses, from a file that still has its symbols.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace device::loader {

struct NamedFunction {
  uint64_t start = 0;
  std::string name;  // as it is written in the source; where it lies when that is not known
};

class Names {
 public:
  // Of the slice for `architecture`; none when the file is not there.
  Names(const std::filesystem::path& file, const std::string& architecture);

  // The function that the address lies in. Addresses count from the image's start.
  NamedFunction at(uint64_t address) const;

 private:
  std::map<uint64_t, std::string> starts;
};

}  // namespace device::loader
