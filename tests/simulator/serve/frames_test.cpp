// Which frames pages get, and when.
#include <chrono>

#include "bridge/block.hpp"
#include "bridge/define.hpp"
#include "platform/foundation/timer.hpp"
#include "tests/simulator/serve/glass.hpp"
#include "tests/simulator/serve/living_home.hpp"
#include "tests/simulator/serve/shown_frame.hpp"

namespace test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr CGRect much{{0, 0}, {320, 568}}, little{{0, 0}, {10, 10}};  // points
constexpr double soon = 0.1;  // seconds within which a frame would have come

sim::Json join() { return {{"type", "join"}}; }
sim::Json leave() { return {{"type", "leave"}}; }
sim::Json drawn(double frame) { return {{"type", "drawn"}, {"frame", frame}}; }
sim::Json touch() { return finger(0, "down", 5, 5); }
sim::Json lift() { return finger(0, "up", 5, 5); }

double secondsSince(Clock::time_point then) {
  return std::chrono::duration<double>(Clock::now() - then).count();
}

class Frames : public LivingHome {
 protected:
  static ShownFrame next(Pages& pages) { return readFrame(pages.frame()); }
  // The first one, drawn.
  static void begin(Pages& pages) {
    pages.say(join());
    EXPECT_EQ(next(pages).number, 1u);
    pages.say(drawn(1));
  }
  void paintWhenTouched(CGRect place) {
    glass.whenTouched = [this, place] { glass.paint(place); };
  }

  Glass glass;
};

TEST_F(Frames, BeginWithTheWholeScreenExactly) {
  live([](Pages& pages) {
    pages.say(join(), 0x10203);
    const auto told = pages.next();
    ASSERT_TRUE(told);
    EXPECT_EQ(told->page, 0x10203u);
    EXPECT_EQ(told->isText, 0u);
    const ShownFrame frame = readFrame(told->contents);
    EXPECT_EQ(frame.number, 1u);
    EXPECT_EQ(frame.codec, exact);
    EXPECT_EQ(std::pair(frame.width, frame.height), std::pair(640, 1136));
    EXPECT_EQ(std::pair(frame.pointsAcross, frame.pointsDown), std::pair(320, 568));
    EXPECT_EQ(frame.places.size(), 180u);
  });
}

TEST_F(Frames, GoToPagesThatHaveJoinedAlone) {
  paintWhenTouched(much);
  live([](Pages& pages) {
    pages.say(touch());
    EXPECT_FALSE(pages.nextWithin(soon));
  });
}

TEST_F(Frames, AreNoneWhereNothingChanges) {
  live([](Pages& pages) {
    begin(pages);
    EXPECT_EQ(pages.ask({{"type", "report"}})["type"], "report");
    EXPECT_FALSE(pages.nextWithin(soon));
  });
}

TEST_F(Frames, ShowWhatAMessageChanged) {
  paintWhenTouched(little);
  live([](Pages& pages) {
    begin(pages);
    pages.say(touch());
    const ShownFrame frame = next(pages);
    EXPECT_EQ(frame.number, 2u);
    EXPECT_EQ(frame.codec, exact);
    EXPECT_EQ(frame.places, (std::vector<std::pair<int, int>>{{0, 0}}));
  });
}

TEST_F(Frames, WaitUntilOneOfTwoIsDrawn) {
  paintWhenTouched(little);
  live([](Pages& pages) {
    pages.say(join());
    EXPECT_EQ(next(pages).number, 1u);
    pages.say(touch());
    EXPECT_EQ(next(pages).number, 2u);
    pages.say(lift());
    EXPECT_FALSE(pages.nextWithin(soon));
    pages.say(drawn(1));
    EXPECT_EQ(next(pages).number, 3u);
  });
}

TEST_F(Frames, TellLaterWhatWasMissed) {
  int touches = 0;
  glass.whenTouched = [&] { glass.paint({{70.0 * touches++, 0}, {10, 10}}); };
  live([](Pages& pages) {
    pages.say(join());
    next(pages);
    pages.say(touch());
    next(pages);
    pages.say(lift());
    pages.say({{"type", "report"}});
    EXPECT_TRUE(pages.next().value().isText);
    pages.say(touch());
    pages.say({{"type", "report"}});
    EXPECT_TRUE(pages.next().value().isText);
    pages.say(drawn(2));
    EXPECT_EQ(next(pages).places.size(), 2u);
  });
}

TEST_F(Frames, OfOnePageDoNotWaitForAnother) {
  paintWhenTouched(little);
  live([](Pages& pages) {
    pages.say(join(), 1);
    next(pages);
    pages.say(touch());
    next(pages);
    pages.say(join(), 2);
    const auto told = pages.next();
    ASSERT_TRUE(told);
    EXPECT_EQ(told->page, 2u);
    EXPECT_EQ(readFrame(told->contents).places.size(), 180u);
    pages.say(lift());
    const auto more = pages.next();
    ASSERT_TRUE(more);
    EXPECT_EQ(more->page, 2u);
  });
}

TEST_F(Frames, AreDrawnByThePageThatSaysSo) {
  paintWhenTouched(little);
  live([](Pages& pages) {
    pages.say(join());
    next(pages);
    pages.say(touch());
    next(pages);
    pages.say(drawn(2), 7);
    pages.say(lift());
    EXPECT_FALSE(pages.nextWithin(soon));
  });
}

TEST_F(Frames, GoToNoPageThatHasLeft) {
  paintWhenTouched(little);
  live([](Pages& pages) {
    begin(pages);
    pages.say(leave());
    pages.say(touch());
    EXPECT_FALSE(pages.nextWithin(soon));
    pages.say(join());
    EXPECT_EQ(next(pages).number, 1u);
  });
}

TEST_F(Frames, OfMuchThatChangedAreALikenessAndExactWhenItHasBeenStill) {
  paintWhenTouched(much);
  live([](Pages& pages) {
    begin(pages);
    pages.say(touch());
    const ShownFrame quick = next(pages);
    EXPECT_EQ(quick.codec, likeness);
    pages.say(drawn(quick.number));
    const ShownFrame frame = next(pages);
    EXPECT_EQ(frame.codec, exact);
    EXPECT_EQ(frame.places, quick.places);
    pages.say(drawn(frame.number));
    EXPECT_FALSE(pages.nextWithin(0.3));
  });
}

// On a machine that is busy elsewhere it may take longer, and look shorter; but not every time.
TEST_F(Frames, AreExactAfterAboutASixthOfASecond) {
  paintWhenTouched(much);
  live([](Pages& pages) {
    begin(pages);
    double shortest = 10, longest = 0;
    for (int i = 0; i < 4; ++i) {
      pages.say(i % 2 ? lift() : touch());
      pages.say(drawn(next(pages).number));
      const auto then = Clock::now();
      pages.say(drawn(next(pages).number));
      shortest = std::min(shortest, secondsSince(then));
      longest = std::max(longest, secondsSince(then));
    }
    EXPECT_GE(longest, 0.1);
    EXPECT_LT(shortest, 0.5);
  });
}

TEST_F(Frames, AreExactLaterThoughOtherThingsAreSaidMeanwhile) {
  paintWhenTouched(much);
  live([](Pages& pages) {
    begin(pages);
    pages.say(touch());
    const ShownFrame quick = next(pages);
    EXPECT_EQ(quick.codec, likeness);
    pages.say(drawn(quick.number));
    const auto then = Clock::now();
    bool isExact = false;
    while (!isExact && secondsSince(then) < 2) {
      pages.say({{"type", "report"}});
      for (auto told = pages.next(); told && !told->isText; told = pages.next()) isExact = true;
    }
    EXPECT_TRUE(isExact);
  });
}

TEST_F(Frames, FollowAnAnimationAndNoFasterThanSixtyASecond) {
  glass.whenTouched = [this] {
    glass.whenTouched = [] {};
    const bridge::Block<void()> move([this] { glass.view().frame.set({{0, 60}, {320, 568}}); });
    UIView::animateWithDuration_animations(0.8, move);
  };
  glass.paint({{0, 0}, {20, 20}});
  live([](Pages& pages) {
    begin(pages);
    const auto then = Clock::now();
    pages.say(touch());
    int count = 0;
    double last = 0;
    while (const auto told = pages.nextWithin(0.5)) {
      pages.say(drawn(readFrame(told->contents).number));
      last = secondsSince(then);
      ++count;
    }
    EXPECT_GE(count, 3);
    EXPECT_LE(count, last * 60 + 2);
  });
}

struct Ticking : bridge::Face<"TestTicking", NSObject> {
  MESSAGE Method<"tick:", void(NSTimer)> tick;
};

std::function<void()> whenTicking;

void tick(Ticking, NSTimer) { whenTicking(); }

TEST_F(Frames, ShowWhatATimerChanged) {
  bridge::Implementation<Ticking>::define<NSObject>(bridge::method<&Ticking::tick, tick>());
  const auto target = bridge::make<Ticking, &NSObject::init>();
  whenTicking = [this] { glass.paint(little); };
  glass.whenTouched = [&] {
    glass.whenTouched = [] {};
    NSTimer::scheduledTimerWithTimeInterval_target_selector_userInfo_repeats(
        0.05, target, bridge::Descriptor<&Ticking::tick>::selector(), {}, NO);
  };
  live([](Pages& pages) {
    begin(pages);
    pages.say(touch());
    EXPECT_EQ(next(pages).number, 2u);
  });
}

TEST_F(Frames, ComeWhileAStepTakesItsTime) {
  paintWhenTouched(little);
  live([](Pages& pages) {
    begin(pages);
    pages.say(step("drag 10 10 20 20 3"));
    for (std::uint32_t number = 2; number < 5; ++number) {
      const auto told = pages.next();
      ASSERT_TRUE(told);
      EXPECT_FALSE(told->isText);
      pages.say(drawn(number));
    }
  });
}

}  // namespace
}  // namespace test
