// A wheel's rows and its turning.
#include "simulator/physics/wheel.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using sim::physics::Wheel;
using sim::physics::WheelMotion;

constexpr double rowHeight = 32;

TEST(Wheel, ShowsTheMiddleRowAsItIs) {
  const auto row = Wheel(200).rowAt(0);
  ASSERT_TRUE(row);
  EXPECT_EQ(row->distance, 0);
  EXPECT_EQ(row->flatness, 1);
}

TEST(Wheel, ShowsRowsFlatterAndCloserAwayFromTheMiddle) {
  const Wheel wheel(200);
  const auto row = wheel.rowAt(100 * std::numbers::pi / 6);  // a twelfth of a turn
  ASSERT_TRUE(row);
  EXPECT_NEAR(row->distance, 50, 1e-9);
  EXPECT_NEAR(row->flatness, std::sqrt(3) / 2, 1e-9);
  const auto above = wheel.rowAt(-100 * std::numbers::pi / 6);
  ASSERT_TRUE(above);
  EXPECT_NEAR(above->distance, -50, 1e-9);
}

TEST(Wheel, HidesWhatIsBehindItsEdge) {
  const Wheel wheel(200);
  EXPECT_NEAR(wheel.reach(), 50 * std::numbers::pi, 1e-9);
  EXPECT_FALSE(wheel.rowAt(wheel.reach()));
  EXPECT_FALSE(wheel.rowAt(-3 * wheel.reach()));
  EXPECT_TRUE(wheel.rowAt(wheel.reach() * 0.9));
}

TEST(Wheel, FindsTheWayToWhatShows) {
  const Wheel wheel(200);
  for (const double way : {-120.0, -64.0, 0.0, 10.0, 96.0})
    EXPECT_NEAR(wheel.wayTo(wheel.rowAt(way)->distance), way, 1e-9);
  EXPECT_NEAR(wheel.wayTo(1000), wheel.reach(), 1e-9);
}

TEST(Wheel, IsNoLargerInAHigherView) { EXPECT_EQ(Wheel(280).reach(), Wheel(216).reach()); }

TEST(Wheel, OfNoHeightShowsItsMiddleRow) { EXPECT_TRUE(Wheel(0).rowAt(0)); }

class Turning : public testing::TestWithParam<std::pair<double, double>> {};

// From the position it has, without a jump, to a row, and no further at any time than a wheel's bounce goes.
TEST_P(Turning, BeginsWhereItIsAndEndsAtARow) {
  const auto [from, velocity] = GetParam();
  const WheelMotion motion(from, velocity, rowHeight, 20);
  EXPECT_NEAR(motion.position(0), from, motion.duration() > 0 ? 1e-9 : 0.5);
  EXPECT_EQ(std::fmod(motion.restingPlace(), rowHeight), 0);
  EXPECT_GE(motion.restingPlace(), 0);
  EXPECT_LE(motion.restingPlace(), 19 * rowHeight);
  EXPECT_EQ(motion.position(motion.duration()), motion.restingPlace());
  EXPECT_LT(motion.duration(), 4);
  double last = from;
  for (double time = 0; time < motion.duration() + 0.1; time += 1.0 / 240) {
    EXPECT_LT(std::abs(motion.position(time) - last), 40) << time;
    last = motion.position(time);
  }
}

INSTANTIATE_TEST_SUITE_P(From, Turning,
                         testing::Values(std::pair{0.0, 0.0}, std::pair{10.0, 0.0}, std::pair{17.0, 0.0},
                                         std::pair{15.0, -200.0}, std::pair{64.0, 300.0},
                                         std::pair{300.0, 700.0}, std::pair{300.0, -900.0},
                                         std::pair{300.0, 1.0}, std::pair{320.0, 20.0},
                                         std::pair{590.0, 5000.0}, std::pair{-20.0, 0.0},
                                         std::pair{-20.0, 800.0}, std::pair{630.0, -100.0}));

TEST(TurningWheel, GoesToTheNearestRowWhenItIsLetGoAtRest) {
  EXPECT_EQ(WheelMotion(15.9, 0, rowHeight, 20).restingPlace(), 0);
  EXPECT_EQ(WheelMotion(16.1, 0, rowHeight, 20).restingPlace(), rowHeight);
}

TEST(TurningWheel, IsOverAtOnceAtARow) { EXPECT_EQ(WheelMotion(64, 0, rowHeight, 20).duration(), 0); }

TEST(TurningWheel, KeepsItsVelocityAndOnlyLosesIt) {
  const WheelMotion motion(64, 600, rowHeight, 20);
  const auto velocity = [&](double time) {
    return (motion.position(time + 1e-4) - motion.position(time)) / 1e-4;
  };
  EXPECT_NEAR(velocity(0), 600, 1);
  for (double time = 0; time < motion.duration() - 0.1; time += 0.05)
    EXPECT_GT(velocity(time), velocity(time + 0.05));
}

TEST(TurningWheel, GoesFurtherTheFasterItIs) {
  double last = 0;
  for (const double velocity : {100.0, 400.0, 800.0, 1600.0}) {
    const double rest = WheelMotion(0, velocity, rowHeight, 100).restingPlace();
    EXPECT_GT(rest, last) << velocity;
    last = rest;
  }
}

TEST(TurningWheel, StaysInTheMiddleWhenThereAreNoRows) {
  EXPECT_EQ(WheelMotion(0, 0, rowHeight, 0).restingPlace(), 0);
  EXPECT_EQ(WheelMotion(40, 500, rowHeight, 0).restingPlace(), 0);
  EXPECT_EQ(WheelMotion(-40, 0, rowHeight, 1).restingPlace(), 0);
}

}  // namespace
