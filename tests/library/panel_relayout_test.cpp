// The icons move while the panel's values are stepped.
#include <gtest/gtest.h>

#include "tests/library/expected_grid.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using sim::Json;
using test::PanelHome;

struct System {
  const char* version;
  const char* call;

  friend void PrintTo(const System& system, std::ostream* stream) { *stream << system.version; }
};

const char* const device = "iPhone 6";

Json settings(double topInset) {
  return {{"enabled", true},       {"custom_preset", -1},   {"sideIconInset", 27},
          {"horiIconPadding", 27}, {"vertIconPadding", 14}, {"topIconInset", topInset}};
}

class SteppedIcons : public testing::TestWithParam<System> {
 protected:
  SteppedIcons()
      : system(test::stockReport(test::homeOptions(device, {}, {"--ios", GetParam().version}))),
        home({}, {"--ios", GetParam().version}, device) {}

  test::ExpectedAnswers answers(double topInset) const {
    Json values = settings(topInset);
    test::ExpectedScreen screen(sim::findDevice(device), sim::Orientation::portrait);
    return test::ExpectedHome{system, values, nullptr, screen}.answers();
  }

  void expectPage(const Json& report, size_t page, double topInset) const {
    SCOPED_TRACE("page " + std::to_string(page) + " at " + std::to_string(topInset));
    test::expectFrames(report["pages"][page], answers(topInset), test::iconViewSize(system));
  }

  Json system;
  PanelHome home;
};

TEST_P(SteppedIcons, StandWhereTheNewValuePutsThemAfterEachOfFivePresses) {
  home.open();
  for (int press = 1; press <= 5; ++press) {
    home.step("increment \"Top Inset\"");
    test::expectAnswers(home.report()["pages"][0], answers(30 + press));
    home.wait(0.6);
    expectPage(home.report(), 0, 30 + press);
  }
}

TEST_P(SteppedIcons, MoveOnThePagesCountedSoFar) {
  home.open();
  home.step("increment \"Top Inset\" 5");
  home.wait(0.6);
  Json report = home.report();
  expectPage(report, 0, 35);
  // Before the first scroll one page has been counted.
  for (size_t page : {1, 2}) expectPage(report, page, 30);
}

TEST_P(SteppedIcons, MoveOnEveryPageOnceTheHomeScreenHasScrolled) {
  home.step("swipe left");
  home.wait(1);
  home.open();
  home.step("decrement \"Top Inset\" 3");
  home.wait(0.6);
  for (size_t page : {0, 1, 2}) expectPage(home.report(), page, 27);
}

// Calls that were made since `first`.
void expectRelayouts(const Json& report, size_t presses, int pages, const char* call) {
  const Json& calls = report["relayouts"];
  ASSERT_EQ(calls.size(), presses * static_cast<size_t>(pages));
  for (size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(calls[i]["page"], i % static_cast<size_t>(pages)) << i;
    EXPECT_EQ(calls[i]["duration"], 0.6);
    EXPECT_EQ(calls[i]["call"], call);
  }
}

TEST_P(SteppedIcons, AreLaidOutInSixTenthsOfASecondByTheSystemsEntryPoint) {
  home.open();
  home.step("increment \"Top Inset\" 5");
  expectRelayouts(home.report(), 5, 1, GetParam().call);
}

TEST_P(SteppedIcons, AreLaidOutOnEveryPageAfterAScroll) {
  home.step("swipe left");
  home.wait(1);
  home.open();
  home.step("increment \"Side Inset\" 2");
  expectRelayouts(home.report(), 2, 3, GetParam().call);
}

TEST_P(SteppedIcons, GlideThere) {
  home.open();
  home.step("increment \"Top Inset\"");
  home.wait(1);
  home.step("slide \"Top Inset\" 90");
  auto top = [&] { return home.report()["pages"][0]["icons"][0]["frame"][1].get<double>(); };
  home.wait(0.3);
  EXPECT_GT(top(), 31 + 5);
  EXPECT_LT(top(), 90 - 5);
  home.wait(0.4);
  EXPECT_NEAR(top(), home.panel().topSlider().value(), 1e-4);
}

INSTANTIATE_TEST_SUITE_P(Systems, SteppedIcons,
                         testing::Values(System{"10.3", "domino"}, System{"11.0", "animationType"},
                                         System{"12.1", "animationType"}));

struct Step {
  const char* caption;
  const char* key;
};

class OtherRows : public testing::TestWithParam<Step> {};

TEST_P(OtherRows, MoveTheIconsAsWell) {
  Json system = test::stockReport(test::homeOptions("iPhone 7", {}));
  PanelHome home;
  home.open();
  home.step(std::string("increment \"") + GetParam().caption + "\" 2");
  home.wait(0.6);
  Json values = settings(30);
  values[GetParam().key] = values[GetParam().key].get<double>() + 2;
  test::ExpectedScreen screen(sim::findDevice("iPhone 7"), sim::Orientation::portrait);
  auto answers = test::ExpectedHome{system, values, nullptr, screen}.answers();
  test::expectFrames(home.report()["pages"][0], answers, test::iconViewSize(system));
}

INSTANTIATE_TEST_SUITE_P(Rows, OtherRows,
                         testing::Values(Step{"Horizontal Padding", "horiIconPadding"},
                                         Step{"Vertical Padding", "vertIconPadding"},
                                         Step{"Side Inset", "sideIconInset"}),
                         [](const auto& test) { return std::string(test.param.key); });

}  // namespace
