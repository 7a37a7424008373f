// What is kept for when it is wanted again: the last ones, within bounds.
#include "simulator/quartz/kept.hpp"

#include <gtest/gtest.h>

namespace sim {
namespace {

auto is(int number) {
  return [number](int each) { return each == number; };
}

TEST(Kept, IsFoundByWhatItIs) {
  Kept<int> kept(1000);
  kept.add(7, 100);
  ASSERT_TRUE(kept.find(is(7)));
  EXPECT_EQ(*kept.find(is(7)), 7);
  EXPECT_FALSE(kept.find(is(8)));
}

TEST(Kept, MakesRoomForTheNext) {
  Kept<int> kept(1000);
  for (const int number : {1, 2, 3}) kept.add(number, 400);
  EXPECT_FALSE(kept.find(is(1)));
  EXPECT_TRUE(kept.find(is(2)));
  EXPECT_TRUE(kept.find(is(3)));
}

TEST(Kept, StaysTheLongestWhenItWasWantedLast) {
  Kept<int> kept(1000);
  for (const int number : {1, 2}) kept.add(number, 400);
  kept.find(is(1));
  kept.add(3, 400);
  EXPECT_TRUE(kept.find(is(1)));
  EXPECT_FALSE(kept.find(is(2)));
}

TEST(Kept, IsNothingThatIsLargerThanAllTheRoom) {
  Kept<int> kept(1000);
  kept.add(1, 400);
  kept.add(2, 1001);
  EXPECT_TRUE(kept.find(is(1)));
  EXPECT_FALSE(kept.find(is(2)));
}

TEST(Kept, AreNotMoreThanCanBeLookedThrough) {
  Kept<int> kept(1 << 20);
  const int most = static_cast<int>(Kept<int>::most);
  for (int number = 0; number <= most; ++number) kept.add(number, 1);
  EXPECT_FALSE(kept.find(is(0)));
  EXPECT_TRUE(kept.find(is(1)));
}

TEST(Kept, IsForgotten) {
  Kept<int> kept(1000);
  kept.add(1, 600);
  kept.clear();
  EXPECT_FALSE(kept.find(is(1)));
  for (const int number : {2, 3}) kept.add(number, 500);
  EXPECT_TRUE(kept.find(is(2)));
}

}  // namespace
}  // namespace sim
