// What a file holds.
#include "tests/support/files.hpp"

#include <fstream>
#include <sstream>
#include <utility>

namespace test {

std::string contentsOf(const std::filesystem::path& file) {
  std::ostringstream contents;
  contents << std::ifstream(file, std::ios::binary).rdbuf();
  return std::move(contents).str();
}

}  // namespace test
