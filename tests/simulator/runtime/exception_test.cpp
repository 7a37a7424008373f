// Exceptions that nobody catches.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>

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

TEST(UncaughtException, IsOneLineOnStandardError) {
  test::Run run = runRaisingFrom("load");
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
}

TEST(UncaughtException, LeavesNoTemporaryFolderBehind) {
  auto folder = std::filesystem::path(test::temporaryFile("temporary.keep", "")).parent_path() / "tmp";
  std::filesystem::create_directory(folder);
  setenv("TMPDIR", folder.c_str(), 1);
  EXPECT_EQ(runRaisingFrom("queue").status, 3);
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

}  // namespace
