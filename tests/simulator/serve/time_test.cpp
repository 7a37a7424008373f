// Time passes as on the wall, and the home screen sleeps meanwhile.
#include <unistd.h>

#include <chrono>
#include <ctime>
#include <thread>

#include "platform/foundation/array.hpp"
#include "platform/frontboard/relaunch.hpp"
#include "tests/simulator/serve/glass.hpp"
#include "tests/simulator/serve/living_home.hpp"

namespace test {
namespace {

void rest(double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }

// Of the whole process.
double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

class TimeOfALivingHome : public LivingHome {
 protected:
  static double time(Pages& pages) { return pages.ask({{"type", "report"}})["report"]["time"].get<double>(); }
  // The machine stands still for so long at the next touch.
  void sleepWhenTouched(double seconds) {
    glass.whenTouched = [this, seconds] {
      glass.whenTouched = [] {};
      rest(seconds);
    };
  }

  Glass glass;
};

TEST_F(TimeOfALivingHome, GoesOnWhileNothingIsSaid) {
  live([](Pages& pages) {
    const double before = time(pages);
    rest(0.7);
    EXPECT_GE(time(pages) - before, 0.7);
  });
}

TEST_F(TimeOfALivingHome, IsCaughtUpWithAfterALittle) {
  sleepWhenTouched(0.2);
  live([](Pages& pages) {
    const double before = time(pages);
    pages.say(finger(0, "down", 1, 1));
    EXPECT_GE(time(pages) - before, 0.2);
  });
}

TEST_F(TimeOfALivingHome, IsLeftOutWhereTheMachineSleptAndGoesOnFromThere) {
  sleepWhenTouched(0.95);
  live([](Pages& pages) {
    const double before = time(pages);
    pages.say(finger(0, "down", 1, 1));
    const double after = time(pages);
    EXPECT_LT(after - before, 0.9);
    rest(0.1);
    EXPECT_GE(time(pages) - after, 0.1);
  });
}

TEST_F(TimeOfALivingHome, IsSleptThrough) {
  live([](Pages& pages) {
    time(pages);
    const double before = processorSeconds();
    pages.ask(step("wait 1.6"));
    EXPECT_LT(processorSeconds() - before, 0.4);
  });
}

TEST_F(TimeOfALivingHome, IsSleptThroughWhereNothingIsDue) {
  live([](Pages& pages) {
    time(pages);
    const double before = processorSeconds();
    rest(0.7);
    EXPECT_LT(processorSeconds() - before, 0.3);
  });
}

TEST_F(TimeOfALivingHome, IsSleptThroughThoughAPageLooksOn) {
  live([](Pages& pages) {
    pages.say({{"type", "join"}});
    pages.frame();
    pages.say({{"type", "drawn"}, {"frame", 1}});
    time(pages);
    const double before = processorSeconds();
    rest(0.7);
    EXPECT_LT(processorSeconds() - before, 0.3);
  });
}

TEST_F(TimeOfALivingHome, PassesInShortSteps) {
  live([](Pages& pages) {
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 12; ++i) pages.ask(step("wait 0.01"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  });
}

class TheEndOfALivingHome : public TimeOfALivingHome {};

TEST_F(TheEndOfALivingHome, ComesWithTheServers) {
  EXPECT_FALSE(live([](Pages&) {}));
}

TEST_F(TheEndOfALivingHome, ComesWhenSpringBoardIsToStartAnew) {
  glass.whenTouched = [] {
    const NSMutableArray actions = NSMutableArray::array();
    actions.addObject(SBSRelaunchAction::actionWithReason_options_targetURL("reason"_ns, 0, {}));
    FBSSystemService::sharedService().sendActions_withResult(NSSet::setWithArray(actions), {});
  };
  EXPECT_TRUE(live([](Pages& pages) {
    pages.say(finger(0, "down", 1, 1));
    while (pages.next()) {
    }
  }));
}

TEST_F(TheEndOfALivingHome, GivesTimeBackToWhoStepsIt) {
  live([](Pages&) {});
  const auto start = std::chrono::steady_clock::now();
  home.step("wait 600");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15));
}

}  // namespace
}  // namespace test
