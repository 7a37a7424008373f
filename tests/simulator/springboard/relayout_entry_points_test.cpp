// The two relayout entry points: which version has which, and what is written down of their calls.
#include <gtest/gtest.h>

#include "tests/support/home.hpp"

namespace {

using sim::Json;

struct System {
  const char* version;
  bool domino;
};

class RelayoutEntryPoints : public testing::TestWithParam<System> {};

TEST_P(RelayoutEntryPoints, ExistWhereTheSystemHasThem) {
  test::Home home({"--stock", "--springboard", "real", "--device", "iPhone 6", "--ios", GetParam().version});
  for (SBIconListView list : {SBIconListView(home.page(0)), SBIconListView(home.dock())}) {
    bool domino = list.respondsToSelector(bridge::selector<"layoutIconsIfNeeded:domino:">());
    bool type = list.respondsToSelector(bridge::selector<"layoutIconsIfNeeded:animationType:">());
    EXPECT_EQ(domino, GetParam().domino);
    EXPECT_EQ(type, !GetParam().domino);
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, RelayoutEntryPoints,
                         testing::Values(System{"8.4", true}, System{"9.2", true}, System{"9.3.5", true},
                                         System{"10.3.3", true}, System{"11.0", false},
                                         System{"11.4.1", false}, System{"12.5.7", false}));

TEST(RelayoutCalls, AreWrittenDownWithPageDurationAndTime) {
  test::Home home({"--stock"});
  home.step("wait 0.5");
  home.page(2).layoutIconsIfNeeded_domino.ifAnswered(0.25, YES);
  home.step("wait 0.5");
  home.page(0).layoutIconsIfNeeded_domino.ifAnswered(0.75, NO);
  EXPECT_EQ(home.report()["relayouts"],
            Json::array({{{"page", 2}, {"duration", 0.25}, {"call", "domino"}, {"at", 0.5}},
                         {{"page", 0}, {"duration", 0.75}, {"call", "domino"}, {"at", 1}}}));
}

TEST(RelayoutCalls, AreNeverMadeBySpringBoard) {
  test::Home home({"--stock", "--device", "iPad Air 2"});
  for (const char* step : {"rotate landscape", "lock", "unlock", "rotate portrait", "wait 10"})
    home.step(step);
  EXPECT_EQ(home.report()["relayouts"], Json::array());
}

TEST(RelayoutCalls, BeforeTheLastThousandAreCountedAndLeftOut) {
  test::Home home({"--stock"});
  constexpr int calls = 2345;
  for (int call = 0; call < calls; ++call) home.page(0).layoutIconsIfNeeded_domino.ifAnswered(call, NO);
  const Json report = home.report();
  EXPECT_EQ(report["relayoutsLeftOut"], calls - 1000);
  ASSERT_EQ(report["relayouts"].size(), 1000u);
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(report["relayouts"][i]["duration"], calls - 1000 + i);
}

}  // namespace
