// Timers and delayed performs follow the stepped clock.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bridge/define.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/run_loop.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/foundation.hpp"
#include "simulator/time/run_loop.hpp"

namespace {

namespace clk = sim::clock;

struct NSTimer : bridge::Face<"NSTimer", NSObject> {
  static constexpr bridge::ClassMethod<"NSTimer",
                                       "scheduledTimerWithTimeInterval:target:selector:userInfo:repeats:",
                                       NSTimer(double, bridge::Object, SEL, bridge::Object, BOOL)>
      scheduled{};
  MESSAGE Method<"invalidate", void()> invalidate;
};

struct Today : bridge::Face<"NSDate", NSDate> {
  static constexpr bridge::ClassMethod<"NSDate", "date", NSDate()> date{};
};

struct Bell : bridge::Face<"TestBell", NSObject> {
  MESSAGE Method<"ring:", void(bridge::Object)> ring;
  MESSAGE Method<"chime:", void(bridge::Object)> chime;
  MESSAGE Method<"performSelector:withObject:afterDelay:", void(SEL, bridge::Object, double)> performLater;
  static constexpr bridge::ClassMethod<"NSObject",
                                       "cancelPreviousPerformRequestsWithTarget:", void(bridge::Object)>
      cancelPerforms{};
};

struct Ring {
  std::string what;
  double at;  // seconds
  bool operator==(const Ring&) const = default;
};
[[maybe_unused]] std::ostream& operator<<(std::ostream& out, const Ring& ring) {
  return out << ring.what << " at " << ring.at;
}

std::vector<Ring> rings;
using Rings = std::vector<Ring>;

void ring(Bell, bridge::Object) { rings.push_back({"ring", clk::now()}); }
void chime(Bell, bridge::Object) { rings.push_back({"chime", clk::now()}); }

class Timers : public testing::Test {
 protected:
  Timers() {
    sim::prepareFoundation();
    bridge::Implementation<Bell>::define<NSObject>(bridge::method<&Bell::ring, ring>(),
                                                   bridge::method<&Bell::chime, chime>());
    bell = bridge::make<Bell, &NSObject::init>();
  }

  NSTimer timer(double seconds, bool repeats = false) {
    return NSTimer::scheduled(seconds, bell.get(), bridge::selector<"ring:">(), {}, repeats);
  }

  bridge::Pool pool;
  bridge::Strong<Bell> bell;
};

TEST_F(Timers, OfThreeSecondsFireWhenTheClockReachesThree) {
  timer(3);
  sim::letPass(2.999999);
  EXPECT_EQ(rings, Rings{});
  sim::letPass(0.000001);
  EXPECT_EQ(rings, (Rings{{"ring", 3}}));
  sim::letPass(10);
  EXPECT_EQ(rings.size(), 1u);
}

TEST_F(Timers, DoNotFireWhileTimeStandsStill) {
  timer(0.5);
  for (int i = 0; i < 100; ++i) sim::settle();
  EXPECT_EQ(rings, Rings{});
  EXPECT_EQ(clk::now(), 0);
}

TEST_F(Timers, FireAtTheirOwnMomentsInALongStep) {
  timer(0.25);
  bell->performLater(bridge::selector<"chime:">(), {}, 0.125);
  timer(1);
  sim::letPass(2);
  EXPECT_EQ(rings, (Rings{{"chime", 0.125}, {"ring", 0.25}, {"ring", 1}}));
  EXPECT_EQ(clk::now(), 2);
}

TEST_F(Timers, CountFromWhenTheyWereMade) {
  sim::letPass(0.1);
  timer(3);
  sim::letPass(2.99);
  EXPECT_EQ(rings, Rings{});
  sim::letPass(0.01);
  ASSERT_EQ(rings.size(), 1u);
  EXPECT_NEAR(rings[0].at, 3.1, 1e-6);
}

TEST_F(Timers, ThatRepeatKeepTheirBeat) {
  timer(0.25, true);
  sim::letPass(1);
  EXPECT_EQ(rings, (Rings{{"ring", 0.25}, {"ring", 0.5}, {"ring", 0.75}, {"ring", 1}}));
}

TEST_F(Timers, ThatAreInvalidatedStaySilent) {
  NSTimer running = timer(0.25, true);
  sim::letPass(0.5);
  running.invalidate();
  sim::letPass(5);
  EXPECT_EQ(rings.size(), 2u);
}

TEST_F(Timers, MayBeMadeByTimersWithinTheSameStep) {
  static Bell self;
  self = bell.get();
  dispatch::onMainQueue([] { self.performLater(bridge::selector<"ring:">(), {}, 0.5); });
  sim::letPass(0.5);
  EXPECT_EQ(rings, (Rings{{"ring", 0.5}}));
}

TEST_F(Timers, DelayedPerformsHappenAfterTheirDelay) {
  bell->performLater(bridge::selector<"ring:">(), {}, 0.3);
  sim::letPass(0.299999);
  EXPECT_EQ(rings, Rings{});
  sim::letPass(0.000001);
  ASSERT_EQ(rings.size(), 1u);
  EXPECT_NEAR(rings[0].at, 0.3, 1e-6);
}

TEST_F(Timers, APerformWithoutDelayWaitsForTheNextTurn) {
  bell->performLater(bridge::selector<"ring:">(), {}, 0);
  EXPECT_EQ(rings, Rings{});
  sim::letPass(0.001);
  EXPECT_EQ(rings.size(), 1u);
}

TEST_F(Timers, DelayedPerformsCanBeCancelled) {
  bell->performLater(bridge::selector<"ring:">(), {}, 0.3);
  Bell::cancelPerforms(bell.get());
  sim::letPass(1);
  EXPECT_EQ(rings, Rings{});
}

TEST_F(Timers, DatesAreThoseOfTheClock) {
  double start = Today::date().timeIntervalSinceReferenceDate();
  // 5 June 2018, 09:41 UTC, counted from 2001.
  EXPECT_EQ(start, 549884460);
  sim::letPass(1.5);
  EXPECT_EQ(Today::date().timeIntervalSinceReferenceDate() - start, 1.5);
}

}  // namespace
