// Small stories, each told on systems whose SpringBoard differs, on a phone or a tablet: none of them ends
// SpringBoard. In scenarios/, a file's first line has options, the others are steps. script/scenarios tells
// all of them on all systems.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/home.hpp"

namespace {

namespace fs = std::filesystem;

constexpr const char* versions[] = {"9.2", "9.3.5", "10.1", "10.2", "11.1", "12.1"};

struct Telling {
  fs::path story;
  std::string version;
  bool onTablet;

  friend void PrintTo(const Telling& telling, std::ostream* stream) {
    *stream << telling.story.stem().string() << " on " << telling.version;
  }
};

// Each story on two of the systems, so that every system has a third of them.
std::vector<Telling> tellings() {
  std::vector<fs::path> stories;
  for (const auto& file : fs::directory_iterator(SCENARIOS)) stories.push_back(file.path());
  std::ranges::sort(stories);
  std::vector<Telling> all;
  for (size_t i = 0; i < stories.size(); ++i)
    for (size_t shift : {0, 3})
      all.push_back({stories[i], versions[(i + shift) % std::size(versions)], (i / 2 + shift) % 2 == 1});
  return all;
}

std::vector<std::string> wordsOf(const std::string& line) {
  std::istringstream stream(line);
  return {std::istream_iterator<std::string>(stream), {}};
}

class Scenario : public testing::TestWithParam<Telling> {};

TEST_P(Scenario, IsToldToItsEnd) {
  std::ifstream file(GetParam().story);
  std::vector<std::string> options{"--springboard", "real",
                                   "--device",      GetParam().onTablet ? "iPad Air 2" : "iPhone 6s",
                                   "--ios",         GetParam().version};
  std::vector<std::string> steps;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("# ")) {
      steps.push_back(line);
      continue;
    }
    for (const std::string& word : wordsOf(line.substr(2))) options.push_back(word);
  }
  ASSERT_FALSE(steps.empty());
  test::Home home(options);
  EXPECT_EQ(home.report()["loaded"], true);
  for (const std::string& step : steps) home.step(step);
  EXPECT_EQ(home.report()["ios"], GetParam().version);
}

INSTANTIATE_TEST_SUITE_P(Stories, Scenario, testing::ValuesIn(tellings()), [](const auto& test) {
  std::string name = fmt::format("{}_on_{}", test.param.story.stem().string(), test.param.version);
  std::ranges::replace(name, '.', '_');
  return name;
});

}  // namespace
