// Timing curves and springs at fixed times.
#include "simulator/quartz/timing.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace sim {
namespace {

TEST(TimingCurve, BeginsAtZeroAndEndsAtOne) {
  for (const TimingCurve& curve : {linearCurve, easeInCurve, easeOutCurve, easeInOutCurve, defaultCurve}) {
    EXPECT_EQ(curve.progress(0), 0);
    EXPECT_EQ(curve.progress(1), 1);
    EXPECT_EQ(curve.progress(-0.5), 0);
    EXPECT_EQ(curve.progress(1.5), 1);
  }
}

TEST(TimingCurve, LinearProgressIsTheFractionItself) {
  for (const double fraction : {0.1, 0.25, 0.5, 0.9}) EXPECT_EQ(linearCurve.progress(fraction), fraction);
}

TEST(TimingCurve, EaseInOutIsHalfWayInTheMiddleAndSymmetric) {
  EXPECT_NEAR(easeInOutCurve.progress(0.5), 0.5, 1e-12);
  for (const double fraction : {0.1, 0.2, 0.3, 0.4}) {
    EXPECT_NEAR(easeInOutCurve.progress(fraction) + easeInOutCurve.progress(1 - fraction), 1, 1e-12);
  }
}

// The curve's own points: at t = 1/4, x = 9/64·(3·x1 + x2) + 1/64 and so for y.
TEST(TimingCurve, PassesThroughThePointsOfItsBezier) {
  const double x = 27.0 / 64 * 0.42 + 9.0 / 64 * 0.58 + 1.0 / 64;
  EXPECT_NEAR(easeInOutCurve.progress(x), 9.0 / 64 + 1.0 / 64, 1e-12);
  const double inX = 27.0 / 64 * 0.42 + 9.0 / 64 + 1.0 / 64;
  EXPECT_NEAR(easeInCurve.progress(inX), 9.0 / 64 + 1.0 / 64, 1e-12);
  const double outX = 9.0 / 64 * 0.58 + 1.0 / 64;
  EXPECT_NEAR(easeOutCurve.progress(outX), 9.0 / 64 + 1.0 / 64, 1e-12);
}

TEST(TimingCurve, EaseInStartsSlowlyAndEaseOutIsItsMirrorImage) {
  EXPECT_LT(easeInCurve.progress(0.25), 0.12);
  for (const double fraction : {0.1, 0.35, 0.6, 0.85}) {
    EXPECT_NEAR(easeOutCurve.progress(fraction), 1 - easeInCurve.progress(1 - fraction), 1e-12);
  }
}

TEST(Spring, FrequencyIsThatOfTheEnvelopeRelation) {
  EXPECT_NEAR(Spring(1, 0, 0.5).frequency(), 18.467, 5e-4);
  EXPECT_NEAR(Spring(0.8, 0, 0.5).frequency(), 17.989, 5e-4);
  EXPECT_NEAR(Spring(0.5, 0, 0.5).frequency(), 25.434, 5e-4);
  EXPECT_NEAR(Spring(0.7, 0, 0.3).frequency(), 32.799, 5e-4);
  EXPECT_NEAR(Spring(0.25, 0, 3).frequency(), 7.405, 5e-4);
}

TEST(Spring, PositionIsThatOfADampedOscillation) {
  const Spring spring(0.5, 0, 0.5);
  EXPECT_NEAR(spring.position(0.1), 1.035, 5e-4);
  EXPECT_NEAR(spring.position(0.15), 1.160, 5e-4);
  EXPECT_NEAR(spring.position(0.5), 1.001, 5e-4);
}

TEST(Spring, StandsAtZeroUntilItStarts) {
  EXPECT_EQ(Spring(0.7, 0, 0.4).position(0), 0);
  EXPECT_EQ(Spring(0.7, 0, 0.4).position(-1), 0);
}

// The relation makes the sine's share a thousandth; with the cosine's the amplitude is 0.001 / ratio.
TEST(Spring, HasAllButSettledAtItsDuration) {
  for (const double ratio : {0.3, 0.5, 0.7, 0.8, 1.0}) {
    for (const double duration : {0.2, 0.4, 0.7, 3.0}) {
      EXPECT_NEAR(Spring(ratio, 0, duration).position(duration), 1, 0.001001 / ratio)
          << ratio << " " << duration;
    }
  }
}

TEST(Spring, CriticallyDampedNeverPassesItsTarget) {
  const Spring spring(1, 0, 0.5);
  double last = 0;
  for (int step = 1; step <= 100; ++step) {
    const double position = spring.position(step * 0.005);
    EXPECT_GT(position, last);
    EXPECT_LT(position, 1);
    last = position;
  }
}

TEST(Spring, StartsWithItsVelocity) {
  for (const double ratio : {0.5, 1.0}) {
    for (const double velocity : {0.0, 1.0, 3.0}) {
      const double step = 1e-6;
      EXPECT_NEAR(Spring(ratio, velocity, 0.5).position(step) / step, velocity, 1e-3);
    }
  }
}

TEST(Spring, RatioAndDurationAreClamped) {
  EXPECT_EQ(Spring(4, 0, 0.5), Spring(1, 0, 0.5));
  EXPECT_EQ(Spring(-1, 0, 0.5), Spring(0.01, 0, 0.5));
  EXPECT_EQ(Spring(0.5, 0, 100), Spring(0.5, 0, 10));
  EXPECT_EQ(Spring(0.5, 0, 0), Spring(0.5, 0, 0.01));
}

TEST(Spring, SettlesWhateverItsVelocity) {
  for (const double ratio : {0.3, 0.8, 1.0}) {
    for (const double velocity : {-50.0, -5.0, 10.0, 20.0, 200.0}) {
      const Spring spring(ratio, velocity, 0.5);
      EXPECT_TRUE(std::isfinite(spring.frequency()) && spring.frequency() > 0) << ratio << " " << velocity;
      EXPECT_NEAR(spring.position(0.5), 1, 0.02) << ratio << " " << velocity;
    }
  }
}

TEST(Progress, IsOneFromTheEndOfTheDurationOn) {
  EXPECT_EQ(progressAt(Spring(0.3, 0, 0.5), 0.5, 0.5), 1);
  EXPECT_EQ(progressAt(easeInCurve, 0.5, 0.5), 1);
  EXPECT_EQ(progressAt(easeInCurve, 7, 0.5), 1);
  EXPECT_EQ(progressAt(linearCurve, 0, 0), 1);
}

TEST(Progress, OfACurveGoesByTheFractionOfTheDuration) {
  EXPECT_DOUBLE_EQ(progressAt(linearCurve, 0.1, 0.4), 0.25);
  EXPECT_EQ(progressAt(linearCurve, -0.1, 0.4), 0);
}

}  // namespace
}  // namespace sim
