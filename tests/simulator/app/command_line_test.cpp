// The program as its users run it.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/home.hpp"

namespace {

TEST(CommandLine, EndsWithTwoAndOneLineForAnUnknownDevice) {
  test::Run run = test::runSimulator({"--device", "iPhone 99"});
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.errors.find("iPhone 99"), std::string::npos);
  EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1);
}

}  // namespace
