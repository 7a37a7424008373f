// Folders that come and go, and the package made as script/package makes it.
#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "tests/device/command.hpp"

namespace package::test {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;
using device::test::Outcome;
using device::test::run;

// Gone with all that is in it at the test's end.
class Folder {
 public:
  Folder() {
    std::string name = testing::TempDir() + "package.XXXXXX";
    path = ::mkdtemp(name.data());
  }
  ~Folder() { fs::remove_all(path); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string operator/(const std::string& name) const { return (path / name).string(); }
  std::string text() const { return path.string(); }

 private:
  fs::path path;
};

// A shell command that has to work; answers what it printed.
inline Lines must(const std::string& command) {
  const Outcome outcome = run(command);
  EXPECT_EQ(outcome.status, 0) << command << "\n" << testing::PrintToString(outcome.lines);
  return outcome.lines;
}

inline std::string contents(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return (std::ostringstream() << in.rdbuf()).str();
}

inline void write(const std::string& file, const std::string& text) {
  fs::create_directories(fs::path(file).parent_path());
  std::ofstream(file, std::ios::binary) << text;
}

inline void stage(const std::string& tree) {
  must(fmt::format("'{}/stage' '{}' '{}'", PACKAGE, BUILD, tree));
}
inline void pack(const std::string& tree, const std::string& file) {
  must(fmt::format("'{}/pack' '{}' '{}'", PACKAGE, tree, file));
}

}  // namespace package::test
