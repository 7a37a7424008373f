// Exceptions that nobody catches, and crashes: how they end the process, and what they leave behind.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/home.hpp"

namespace {

test::Run runRaisingFrom(const char* place) {
  setenv("RAISE_FROM", place, 1);
  return test::runSimulator({"--library", RAISING_LIBRARY, "--script", "-", "--report", "-"}, "wait 1\n");
}

void expectEnd(const char* place) {
  test::Run run = runRaisingFrom(place);
  EXPECT_EQ(run.status, 3) << run.errors;
  EXPECT_NE(run.errors.find("TestException"), std::string::npos) << run.errors;
  EXPECT_NE(run.errors.find("too many spoons"), std::string::npos) << run.errors;
  EXPECT_EQ(run.output, "");
}

TEST(UncaughtException, EndsTheRunWhenTheLibraryIsLoaded) { expectEnd("load"); }
TEST(UncaughtException, EndsTheRunFromTheMainQueue) { expectEnd("queue"); }
TEST(UncaughtException, EndsTheRunFromATimer) { expectEnd("timer"); }
TEST(UncaughtException, EndsTheRunFromADelayedPerform) { expectEnd("delayed"); }
TEST(UncaughtException, EndsTheRunFromANotificationsObserver) { expectEnd("notification"); }
TEST(UncaughtException, EndsTheRunFromAnAnimationBlock) { expectEnd("animation"); }
TEST(UncaughtException, EndsTheRunFromALayout) { expectEnd("layout"); }
TEST(UncaughtException, EndsTheRunFromAControllersCallback) { expectEnd("appearance"); }

TEST(UncaughtException, OfAnUnknownMessageNamesClassAndSelector) {
  test::Run run = runRaisingFrom("message");
  EXPECT_EQ(run.status, 3);
  EXPECT_NE(run.errors.find("NSInvalidArgumentException"), std::string::npos) << run.errors;
  EXPECT_NE(run.errors.find("TestRaiser"), std::string::npos) << run.errors;
  EXPECT_NE(run.errors.find("noSuchThing"), std::string::npos) << run.errors;
}

std::vector<std::string> linesFrom(const char* place) {
  std::istringstream errors(runRaisingFrom(place).errors);
  std::vector<std::string> lines;
  for (std::string line; std::getline(errors, line);) lines.push_back(line);
  return lines;
}

// The functions that were called, one a line, the innermost first.
void expectTrail(const std::vector<std::string>& lines, std::vector<std::string> wanted) {
  auto next = wanted.begin();
  for (const std::string& line : lines)
    if (next != wanted.end() && line.starts_with("    " + *next)) ++next;
  EXPECT_EQ(next, wanted.end()) << *next << " is not among, or not in order:\n"
                                << testing::PrintToString(lines);
}

TEST(UncaughtException, IsALineOnStandardErrorAndIndentedOnesBelow) {
  for (const char* place : {"load", "queue", "layout", "timer"}) {
    const auto lines = linesFrom(place);
    ASSERT_GT(lines.size(), 3U) << place;
    EXPECT_EQ(lines[0], "TestException: too many spoons");
    for (size_t i = 1; i < lines.size(); ++i) EXPECT_TRUE(lines[i].starts_with("  ")) << lines[i];
  }
}

TEST(UncaughtException, NamesTheReplacedMethodItsLibraryAndThePlace) {
  const auto lines = linesFrom("layout");
  ASSERT_GT(lines.size(), 3U);
  EXPECT_EQ(lines[1], "  in -[SBIconListView verticalIconPadding], replaced by libraising.dylib");
  expectTrail(lines, {"raiseForPadding at raising.cpp:", "sim::Simulation::start at simulation.cpp:"});
}

TEST(UncaughtException, OutsideOfReplacementsNamesThePlaceAlone) {
  const auto lines = linesFrom("queue");
  for (const std::string& line : lines) EXPECT_EQ(line.find("replaced by"), std::string::npos);
  expectTrail(lines, {"raise at raising.cpp:"});
}

// The notification centre catches what its observers raise, and tells when their frames have gone.
TEST(UncaughtException, ThatFoundationCatchesFirstStillHasItsPlace) {
  expectTrail(linesFrom("notification"), {"raise at raising.cpp:"});
  expectTrail(linesFrom("delayed"), {"raise at raising.cpp:"});
}

TEST(Crash, TellsTheReplacedMethodItsLibraryAndThePlace) {
  const auto lines = linesFrom("fault");
  ASSERT_GT(lines.size(), 3U);
  EXPECT_EQ(lines[0], "Segmentation fault at the address 0x1000");
  EXPECT_EQ(lines[1], "  in -[SBIconListView verticalIconPadding], replaced by libraising.dylib");
  expectTrail(lines, {"faultForPadding at raising.cpp:", "sim::Simulation::start at simulation.cpp:"});
}

TEST(Crash, AtTheEndOfTheStackTellsAllTheSame) {
  const auto lines = linesFrom("depth");
  ASSERT_GT(lines.size(), 3U);
  EXPECT_TRUE(lines[0].starts_with("Segmentation fault")) << lines[0];
  EXPECT_EQ(lines[1], "  in -[SBIconListView verticalIconPadding], replaced by libraising.dylib");
  expectTrail(lines, {"deeperForPadding at raising.cpp:", "deeperForPadding at raising.cpp:"});
}

TEST(UncaughtException, LeavesNoTemporaryFolderBehind) {
  auto folder = std::filesystem::path(test::temporaryFile("temporary.keep", "")).parent_path() / "tmp";
  std::filesystem::create_directory(folder);
  setenv("TMPDIR", folder.c_str(), 1);
  EXPECT_EQ(runRaisingFrom("queue").status, 3);
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

}  // namespace
