// Fingers of pages, on a glass that writes them down.
#include <limits>

#include "tests/simulator/serve/glass.hpp"
#include "tests/simulator/serve/living_home.hpp"

namespace test {
namespace {

using Touches = std::vector<std::string>;

constexpr std::uint32_t onlooker = 99;  // a page

class AFinger : public LivingHome {
 protected:
  // Its screen feels how hard it is pressed.
  AFinger() : LivingHome({"--stock", "--device", "iPhone 6s", "--pages", "1"}) {}
  // What is told for these, each said by the page before it and done when the next is said.
  std::vector<sim::Json> toldPages(const std::vector<std::pair<std::uint32_t, sim::Json>>& said) {
    std::vector<sim::Json> answers;
    live([&](Pages& pages) {
      for (const auto& [page, message] : said) {
        pages.say(message, page);
        pages.say({{"type", "view-at"}, {"x", -1}, {"y", -1}}, onlooker);
        for (auto next = pages.next(); next && next->page != onlooker; next = pages.next())
          answers.push_back(sim::Json::parse(next->contents));
      }
    });
    return answers;
  }
  std::vector<sim::Json> told(const std::vector<sim::Json>& said) {
    std::vector<std::pair<std::uint32_t, sim::Json>> all;
    for (const sim::Json& message : said) all.emplace_back(1, message);
    return toldPages(all);
  }
  static sim::Json refused(int id, const std::string& reason) {
    return {{"type", "refused"}, {"id", id}, {"reason", reason}};
  }
  static sim::Json leave() { return {{"type", "leave"}}; }

  Glass glass;
};

TEST_F(AFinger, TouchesMovesAndLeaves) {
  EXPECT_TRUE(
      told({finger(0, "down", 10, 20), finger(0, "move", 30.5, 40), finger(0, "up", 31, 41)}).empty());
  EXPECT_EQ(glass.touches, (Touches{"began 10 20 force 1", "moved 30.5 40 force 1", "ended 31 41 force 0"}));
}

TEST_F(AFinger, IsOneOfTen) {
  told({finger(0, "down", 1, 1), finger(9, "down", 9, 9)});
  EXPECT_EQ(glass.touches, (Touches{"began 1 1 force 1", "began 9 9 force 1"}));
}

TEST_F(AFinger, OfAnyOtherNumberIsRefused) {
  for (const int number : {-1, 10})
    EXPECT_EQ(told({finger(number, "down", 1, 1)}),
              std::vector{refused(number, "no finger has the number " + std::to_string(number))});
  EXPECT_EQ(glass.touches, Touches());
}

TEST_F(AFinger, DoesNothingElse) {
  EXPECT_EQ(told({finger(0, "down", 1, 1), finger(0, "hover", 5, 5), finger(0, "move", 7, 7)}),
            std::vector{refused(0, "no finger does 'hover'")});
  EXPECT_EQ(glass.touches, (Touches{"began 1 1 force 1", "moved 7 7 force 1"}));
}

TEST_F(AFinger, BesideTheScreenIsAtItsEdge) {
  told({finger(0, "down", -1, -0.5), finger(0, "move", 374.5, 666.5), finger(0, "up", 1e300, 1e300)});
  EXPECT_EQ(glass.touches, (Touches{"began 0 0 force 1", "moved 374 666 force 1", "ended 374 666 force 0"}));
}

TEST_F(AFinger, IsWhereItIsWithinAPointOfTheEdge) {
  told({finger(0, "down", 0.5, 0.5), finger(0, "move", 373.5, 665.5)});
  EXPECT_EQ(glass.touches, (Touches{"began 0.5 0.5 force 1", "moved 373.5 665.5 force 1"}));
}

TEST_F(AFinger, PressesAsHardAsIsSaid) {
  sim::Json firm = finger(0, "down", 1, 1), firmer = finger(0, "move", 2, 2);
  firm["force"] = 2.5;
  firmer["force"] = 4;
  told({firm, firmer});
  EXPECT_EQ(glass.touches, (Touches{"began 1 1 force 2.5", "moved 2 2 force 4"}));
}

TEST_F(AFinger, ThatIsDownComesDownNoSecondTime) {
  const auto answers = told({finger(0, "down", 1, 1), finger(0, "down", 2, 2)});
  ASSERT_EQ(answers.size(), 1u);
  EXPECT_TRUE(answers[0]["reason"].get<std::string>().ends_with(" is down already"));
  EXPECT_EQ(glass.touches, Touches{"began 1 1 force 1"});
}

TEST_F(AFinger, OfEachPageIsItsOwn) {
  EXPECT_TRUE(
      toldPages({{1, finger(0, "down", 1, 1)}, {2, finger(0, "down", 2, 2)}, {1, finger(0, "up", 3, 3)}})
          .empty());
  EXPECT_EQ(glass.touches, (Touches{"began 1 1 force 1", "began 2 2 force 1", "ended 3 3 force 0"}));
}

TEST_F(AFinger, OfThePageWithTheGreatestNumberIsOneToo) {
  const std::uint32_t last = std::numeric_limits<std::uint32_t>::max();
  EXPECT_TRUE(toldPages({{last, finger(9, "down", 1, 1)}, {1, finger(9, "down", 2, 2)}}).empty());
  EXPECT_EQ(glass.touches.size(), 2u);
}

TEST_F(AFinger, LeavesTheGlassWhereItIsWhenItsPageLeaves) {
  EXPECT_TRUE(
      told({finger(0, "down", 1, 1), finger(3, "down", 5, 5), finger(3, "move", 6, 6), leave()}).empty());
  EXPECT_EQ(glass.touches, (Touches{"began 1 1 force 1", "began 5 5 force 1", "moved 6 6 force 1",
                                    "ended 1 1 force 0", "ended 6 6 force 0"}));
}

TEST_F(AFinger, StaysWhenAnotherPageLeaves) {
  toldPages({{1, finger(0, "down", 1, 1)}, {2, finger(0, "down", 2, 2)}, {2, leave()}});
  EXPECT_EQ(glass.touches, (Touches{"began 1 1 force 1", "began 2 2 force 1", "ended 2 2 force 0"}));
}

TEST_F(AFinger, ThatWasLiftedLeavesNoSecondTime) {
  EXPECT_TRUE(told({finger(0, "down", 1, 1), finger(0, "up", 1, 1), leave(), leave()}).empty());
  EXPECT_EQ(glass.touches.size(), 2u);
}

TEST_F(AFinger, IsLiftedOnceWhenItsPageLeavesTwice) {
  EXPECT_TRUE(told({finger(0, "down", 1, 1), leave(), leave()}).empty());
  EXPECT_EQ(glass.touches.size(), 2u);
}

TEST_F(AFinger, IsLiftedWhereItCameDownWhateverWasRefused) {
  told({finger(0, "down", 1, 1), finger(0, "down", 8, 8), leave()});
  EXPECT_EQ(glass.touches.back(), "ended 1 1 force 0");
}

TEST_F(AFinger, ThatNeverCameDownDoesNotKeepItsPageFromLeaving) {
  const auto answers = told({finger(0, "move", 1, 1), finger(5, "down", 5, 5), leave()});
  EXPECT_EQ(answers.size(), 1u);
  EXPECT_EQ(glass.touches, (Touches{"began 5 5 force 1", "ended 5 5 force 0"}));
}

class AFingerOnATablet : public LivingHome {
 protected:
  AFingerOnATablet() : LivingHome({"--stock", "--device", "iPad Air 2", "--pages", "1"}) {}
};

// The screen has got lower under it.
TEST_F(AFingerOnATablet, IsLiftedWhenItsPageLeavesAfterATurn) {
  live([](Pages& pages) {
    pages.say(finger(0, "down", 300, 1000));
    pages.ask(step("rotate landscape"));
    pages.say({{"type", "leave"}});
    EXPECT_EQ(pages.ask({{"type", "report"}}, 2)["type"], "report");
    EXPECT_EQ(pages.ask(finger(0, "move", 1, 1))["reason"], "finger 10 is not down");
  });
}

}  // namespace
}  // namespace test
