// When frames of what moves are shown.
#include "simulator/time/frame_pace.hpp"

#include <gtest/gtest.h>

namespace {

// How many come within a second to somebody who wakes that much too late for each.
int withinASecond(double late) {
  sim::FramePace pace;
  int count = 0;
  for (; pace.next() < 1 - 1e-9; ++count) pace.show(pace.next() + late);
  return count;
}

TEST(FramePace, IsSixtyASecondForWhoeverIsALittleLate) {
  EXPECT_EQ(withinASecond(0), 60);
  EXPECT_EQ(withinASecond(0.001), 60);
  EXPECT_EQ(withinASecond(0.016), 60);
}

TEST(FramePace, LeavesOutFramesThatAreLateByAWholeInterval) {
  sim::FramePace pace;
  pace.show(0);
  pace.show(0.1);
  EXPECT_DOUBLE_EQ(pace.next(), 0.1 + sim::FramePace::interval);
}

TEST(FramePace, BeginsAnewAfterARest) {
  sim::FramePace pace;
  pace.show(0);
  pace.show(7.003);
  EXPECT_DOUBLE_EQ(pace.next(), 7.003 + sim::FramePace::interval);
}

}  // namespace
