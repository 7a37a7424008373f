// Curves of scrolled content at fixed times.
#include "simulator/physics/scroll_motion.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace sim::physics {
namespace {

constexpr double normalRate = 0.998;
constexpr ScrollRange range{0, 600};

TEST(RubberBand, ShowsLessAndLessOfThePull) {
  EXPECT_EQ(rubberBand(0, 300), 0);
  EXPECT_EQ(rubberBand(-5, 300), 0);
  EXPECT_NEAR(rubberBand(100, 300), 100 * 0.55 * 300 / (0.55 * 100 + 300), 1e-12);  // assumed: factor 0.55
  EXPECT_NEAR(rubberBand(1, 1e9), 0.55, 1e-6);
  EXPECT_LT(rubberBand(1e9, 300), 300);
}

TEST(RubberBand, CanBeTurnedRound) {
  for (double pull : {1.0, 20.0, 100.0, 500.0})
    EXPECT_NEAR(rubberBandInverse(rubberBand(pull, 300), 300), pull, 1e-9);
}

TEST(RubberBand, HoldsBeyondBothEdgesOnly) {
  EXPECT_EQ(banded(250, range, 300), 250);
  EXPECT_EQ(banded(-100, range, 300), -rubberBand(100, 300));
  EXPECT_EQ(banded(700, range, 300), 600 + rubberBand(100, 300));
  for (double offset : {-100.0, 0.0, 250.0, 700.0})
    EXPECT_NEAR(unbanded(banded(offset, range, 300), range, 300), offset, 1e-9);
}

TEST(FrictionCurve, LosesItsShareEachMillisecond) {
  const Friction friction(0, 1000, normalRate);
  EXPECT_EQ(friction.position(0), 0);
  EXPECT_NEAR(friction.velocity(0.001), 998, 1e-9);  // assumed: 0.998 per millisecond
  EXPECT_NEAR(friction.velocity(0.1), 1000 * std::pow(0.998, 100), 1e-9);
  EXPECT_NEAR(friction.restingPlace(), 1000 / (-1000 * std::log(0.998)), 1e-9);
  EXPECT_NEAR(friction.position(100), friction.restingPlace(), 1e-6);
}

TEST(FrictionCurve, VelocityIsTheSlope) {
  const Friction friction(30, -700, normalRate);
  for (double time : {0.0, 0.1, 0.5, 1.0})
    EXPECT_NEAR((friction.position(time + 1e-6) - friction.position(time)) / 1e-6, friction.velocity(time),
                1e-2);
}

TEST(FrictionCurve, KnowsWhenItPassesAPlace) {
  const Friction friction(100, 1000, normalRate);
  const auto time = friction.timeAt(400);
  ASSERT_TRUE(time);
  EXPECT_NEAR(friction.position(*time), 400, 1e-9);
  EXPECT_FALSE(friction.timeAt(99));
  EXPECT_FALSE(friction.timeAt(friction.restingPlace() + 1));
  EXPECT_FALSE(Friction(100, 0, normalRate).timeAt(101));
}

TEST(FrictionCurve, EndsHalfAPointBeforeItsPlace) {
  const Friction friction(0, 1000, normalRate);
  EXPECT_NEAR(friction.restingPlace() - friction.position(friction.duration()), 0.5, 1e-9);
  EXPECT_EQ(Friction(0, 0.5, normalRate).duration(), 0);
}

TEST(PullCurve, ComesToItsPlaceWithoutSwinging) {
  const Pull pull(0, 0, 300);
  double last = 0;
  for (int i = 1; i <= 100; ++i) {
    const double now = pull.position(i * 0.01);
    EXPECT_GE(now, last);
    EXPECT_LE(now, 300);
    last = now;
  }
  EXPECT_NEAR(300 - pull.position(pull.duration()), 0.5, 1e-3);
  EXPECT_NEAR(pull.position(0.1), 300 - 300 * (1 + 1.5) * std::exp(-1.5), 1e-9);  // assumed: 15 rad/s
}

TEST(PullCurve, StartsWithItsVelocity) {
  const Pull pull(10, 250, 300);
  EXPECT_NEAR(pull.velocity(0), 250, 1e-9);
  EXPECT_NEAR((pull.position(0.2 + 1e-6) - pull.position(0.2)) / 1e-6, pull.velocity(0.2), 1e-2);
}

TEST(Coasting, StopsWithinTheRange) {
  const auto motion = ScrollMotion::coasting(100, 500, normalRate, range, true);
  EXPECT_NEAR(motion.restingPlace(), 100 + 500 * 0.4995 - 0.5, 0.01);
  EXPECT_EQ(motion.position(motion.duration()), motion.restingPlace());
  EXPECT_NEAR(motion.position(motion.duration() - 1e-6), motion.restingPlace(), 1e-2);
}

TEST(Coasting, BouncesAtTheEdge) {
  const auto motion = ScrollMotion::coasting(500, 2000, normalRate, range, true);
  EXPECT_EQ(motion.restingPlace(), 600);
  double furthest = 0;
  for (double time = 0; time < motion.duration(); time += 0.001)
    furthest = std::max(furthest, motion.position(time));
  EXPECT_GT(furthest, 620);
  EXPECT_LT(furthest, 680);
  EXPECT_EQ(motion.position(motion.duration()), 600);
}

TEST(Coasting, HasNoJumpWhereItMeetsTheEdge) {
  const auto motion = ScrollMotion::coasting(500, 2000, normalRate, range, true);
  for (double time = 0; time < motion.duration(); time += 0.001)
    EXPECT_LT(std::abs(motion.position(time + 0.001) - motion.position(time)), 2.1);
}

TEST(Coasting, StopsAtTheEdgeWithoutABounce) {
  const auto motion = ScrollMotion::coasting(500, 2000, normalRate, range, false);
  for (double time = 0; time < 1; time += 0.001) EXPECT_LE(motion.position(time), 600);
  EXPECT_EQ(motion.position(1), 600);
}

TEST(Coasting, ComesBackFromBeyondTheEdge) {
  const auto motion = ScrollMotion::coasting(-80, 0, normalRate, range, true);
  EXPECT_EQ(motion.position(0), -80);
  EXPECT_EQ(motion.restingPlace(), 0);
  EXPECT_GT(motion.duration(), 0.2);
  EXPECT_LT(motion.duration(), 1);
}

TEST(Towards, DoesNotPassItsPlace) {
  const auto motion = ScrollMotion::towards(280, 9000, 300);
  for (double time = 0; time < 1; time += 0.001) EXPECT_LE(motion.position(time), 300);
  EXPECT_EQ(motion.position(1), 300);
}

TEST(Towards, IsDoneWhereItIs) {
  EXPECT_EQ(ScrollMotion::towards(300, 0, 300).duration(), 0);
  EXPECT_EQ(ScrollMotion::towards(300, 500, 300).position(0.1), 300);
}

}  // namespace
}  // namespace sim::physics
