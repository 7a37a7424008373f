// The stepped clock, as the process and its libraries see it.
#include "simulator/device/clock.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <limits>

#include "probe/probe.hpp"

namespace sim {
namespace {

// Foundation's date, from gettimeofday's answer: seconds since 2001.
double foundationDate() {
  const long long time = probeTime();
  return static_cast<double>(time / 1'000'000 - 978'307'200) + static_cast<double>(time % 1'000'000) / 1e6;
}

TEST(Clock, StandsStillUntilItIsMoved) {
  const double seconds = clock::now();
  const long long date = probeTime();
  usleep(2000);
  EXPECT_EQ(clock::now(), seconds);
  EXPECT_EQ(probeTime(), date);
}

TEST(Clock, LibrariesReadItAsTheTimeOfDay) {
  clock::advanceTo(std::floor(clock::now()) + 3.25);
  EXPECT_EQ(probeTime(), clock::startSince1970 * 1'000'000LL + std::llround(clock::now() * 1e6));
  EXPECT_EQ(std::fmod(clock::now(), 1.0), 0.25);
}

TEST(Clock, ItsDateIsTheFifthOfJune2018) {
  const time_t start = clock::startSince1970;
  tm parts;
  gmtime_r(&start, &parts);
  char text[32];
  strftime(text, sizeof text, "%F %T", &parts);
  EXPECT_STREQ(text, "2018-06-05 09:41:00");
}

TEST(Clock, NeverGoesBack) {
  clock::advanceTo(clock::now() + 1);
  const double seconds = clock::now();
  clock::advanceTo(seconds - 0.5);
  clock::advanceTo(-7);
  EXPECT_EQ(clock::now(), seconds);
}

TEST(Clock, StaysOnTheMicrosecondThatWasAskedFor) {
  const double base = std::ceil(clock::now());
  for (const double part : {0.05, 0.1, 0.123457, 0.3, 0.35, 0.7}) {
    clock::advanceTo(base + part);
    EXPECT_NEAR(clock::now(), base + part, 1e-9);
  }
}

// A timer's dates add up with the rounding of a double that holds hundreds of millions of seconds.
TEST(Clock, ReachesADateThatRoundingHasPutBetweenMicroseconds) {
  double date = foundationDate();
  for (int beat = 0; beat < 2000; ++beat) {
    date += 1.0 / 60.0;
    const double before = clock::now();
    clock::advanceTo(date - clock::startSinceReferenceDate);
    EXPECT_GE(foundationDate(), date);
    EXPECT_NEAR(clock::now() - before, 1.0 / 60.0, 2.5e-6);
  }
}

TEST(Clock, RefusesMomentsThatItCannotReach) {
  const double seconds = clock::now();
  for (const double moment :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e300})
    EXPECT_THROW(clock::advanceTo(moment), std::invalid_argument);
  EXPECT_EQ(clock::now(), seconds);
}

TEST(Clock, KnowsTheDay) {
  using namespace std::chrono;
  EXPECT_EQ(clock::today(), sys_days{2018y / June / 5});
  EXPECT_EQ(weekday(clock::today()), Tuesday);
  clock::advanceTo(51540 - 0.000001);  // 14 hours and 19 minutes
  EXPECT_EQ(clock::today(), sys_days{2018y / June / 5});
  clock::advanceTo(51540);
  EXPECT_EQ(clock::today(), sys_days{2018y / June / 6});
}

}  // namespace
}  // namespace sim
