// States of files that may be kept in mind: which are told apart, and which may change unseen.
#include "simulator/device/file_state.hpp"

#include <gtest/gtest.h>

namespace {

constexpr sim::FileState changedAt(time_t seconds, long nanoseconds) {
  return {1, 2, 3, {seconds, nanoseconds}};
}

TEST(FileState, IsSettledOnceTheDisksClockHasGoneOn) {
  EXPECT_FALSE(changedAt(100, 0).isSettled({100, 0}));
  EXPECT_FALSE(changedAt(100, 0).isSettled({100, 19'000'000}));
  EXPECT_TRUE(changedAt(100, 0).isSettled({100, 21'000'000}));
  EXPECT_FALSE(changedAt(100, 990'000'000).isSettled({101, 5'000'000}));
  EXPECT_TRUE(changedAt(100, 990'000'000).isSettled({101, 15'000'000}));
}

TEST(FileState, OfTheFutureIsNotSettled) { EXPECT_FALSE(changedAt(200, 0).isSettled({100, 0})); }

TEST(FileState, IsAnotherWhereAnyOfItIs) {
  const sim::FileState one = changedAt(100, 5);
  EXPECT_TRUE(one == changedAt(100, 5));
  EXPECT_FALSE(one == changedAt(100, 6));
  EXPECT_FALSE(one == changedAt(101, 5));
  EXPECT_FALSE(one == (sim::FileState{9, 2, 3, {100, 5}}));
  EXPECT_FALSE(one == (sim::FileState{1, 9, 3, {100, 5}}));
  EXPECT_FALSE(one == (sim::FileState{1, 2, 9, {100, 5}}));
}

}  // namespace
