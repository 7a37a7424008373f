// Running the program, and looking at what it leaves.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "simulator/device/temporary_root.hpp"
#include "tests/support/files.hpp"
#include "tests/support/home.hpp"

namespace test {

using Options = std::vector<std::string>;

inline Options joined(Options options, const Options& more) {
  options.insert(options.end(), more.begin(), more.end());
  return options;
}

// The report of a run that goes well, with a script from standard input where there is one.
inline sim::Json reportOf(Options options, const std::string& script = "") {
  if (!script.empty()) options = joined(options, {"--script", "-"});
  Run run = runSimulator(joined(options, {"--report", "-"}), script);
  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(run.errors, "");
  return sim::Json::read(run.output).value_or(nullptr);
}

// The run ends with 2 and one line that names the culprit, and prints nothing else.
inline void expectRefused(const Options& options, const std::string& culprit, const std::string& input = "") {
  Run run = runSimulator(options, input);
  EXPECT_EQ(run.status, 2) << culprit;
  EXPECT_EQ(run.output, "") << culprit;
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
  EXPECT_NE(run.errors.find(culprit), std::string::npos) << run.errors;
}

// Width and height as the picture's own header has them.
inline std::array<unsigned, 2> pngSize(const std::filesystem::path& file) {
  std::string bytes = contentsOf(file);
  if (bytes.size() < 24 || bytes.compare(1, 3, "PNG") != 0) return {};
  auto number = [&](size_t at) {
    unsigned value = 0;
    for (size_t i = at; i < at + 4; ++i) value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
  };
  return {number(16), number(20)};
}

inline bool isEmptyFolder(const std::filesystem::path& folder) { return std::filesystem::is_empty(folder); }

}  // namespace test
