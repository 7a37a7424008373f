// How long panels live, and who keeps them.
#include <gtest/gtest.h>

#include "platform/foundation/notification_center.hpp"
#include "tests/library/panel_home.hpp"
#include "tests/support/memory.hpp"

namespace {

using test::allocatedBytes;
using test::PanelHome;
using tilo::RQPopupView;

int living = 0;

void countDeath(RQPopupView self) {
  --living;
  bridge::original<countDeath>(self);
}

bridge::Strong<NSObject> countBirth(RQPopupView self) {
  ++living;
  return bridge::original<countBirth>(self);
}

// Counts the panels that live from now on.
void countPanels() {
  living = 0;
  test::standIn<RQPopupView, &NSObject::init, countBirth>();
  test::standIn<RQPopupView, &NSObject::dealloc, countDeath>();
}

void close(PanelHome& home, const char* how) {
  if (std::string(how) == "hide") {
    home.panel().hide();
    home.wait(0.8);
  } else {
    home.step(how);
    home.wait(0.8);
  }
}

class ClosedPanel : public testing::TestWithParam<const char*> {};

TEST_P(ClosedPanel, IsKeptUntilTheNextIsOpened) {
  PanelHome home;
  countPanels();
  home.open();
  EXPECT_EQ(living, 1);
  close(home, GetParam());
  EXPECT_EQ(living, 1);
  EXPECT_TRUE(home.panel());
  home.open();
  EXPECT_EQ(living, 1);
}

// The timer of the last press keeps its panel for its three seconds.
TEST_P(ClosedPanel, IsKeptByItsTimerAsWell) {
  PanelHome home;
  countPanels();
  home.open();
  home.step("increment \"Top Inset\"");
  close(home, GetParam());
  home.step("swipe up");
  home.wait(0.5);
  EXPECT_EQ(living, 2);
  home.wait(2);
  EXPECT_EQ(living, 1);
}

INSTANTIATE_TEST_SUITE_P(Ways, ClosedPanel, testing::Values("hide", "tap \"close\""));

// Opens, uses and closes the panel.
void useOnce(PanelHome& home, int round) {
  const bridge::Pool turn;
  home.controller().showPopup();
  home.wait(0.5);
  home.step(round % 4 < 2 ? "increment \"Top Inset\"" : "decrement \"Top Inset\"");
  if (round % 10 == 0) {
    home.step("slide \"Side Inset\" 40");
    home.wait(0.25);
    home.step("page 1");
    home.step("page 0");
    home.step("tap \"collapse\"");
    home.wait(0.5);
  }
  close(home, round % 2 ? "hide" : "tap \"close\"");
  home.wait(3);  // for the timer of the last press
}

TEST(Panels, LeaveNothingBehindAfterAThousandOfThem) {
  PanelHome home;
  countPanels();
  constexpr int rounds = 1000, warmUp = 40;
  int most = 0;
  size_t before = 0;
  for (int round = 0; round < rounds; ++round) {
    useOnce(home, round);
    most = std::max(most, living);
    if (round == warmUp - 1) before = allocatedBytes();
  }
  size_t after = allocatedBytes();
  // The one that was closed last, which the gesture controller keeps until the next is opened.
  EXPECT_EQ(living, 1);
  EXPECT_EQ(most, 1);
  // Less than a hundred bytes for each panel.
  EXPECT_LE(after, before + 64 * 1024) << before;
  home.controller().popView.set({});
  EXPECT_EQ(living, 0);
}

TEST(CancelledPanel, StaysAnObserverAsLongAsItLives) {
  PanelHome home;
  home.open();
  auto cancelled = bridge::retained(home.panel());
  close(home, "tap \"close\"");
  home.open();
  home.step("increment \"Top Inset\"");
  // The new panel's slider is none of its rows, so it stores nothing, but it fades and announces.
  EXPECT_EQ(cancelled->alpha(), 0.5);
  EXPECT_EQ(home.report()["relayouts"].size(), 2u);
  EXPECT_EQ(home.stored("topIconInset"_ns), 31);
  EXPECT_EQ(cancelled->topSlider().value(), 30);
}

TEST(CancelledPanel, IsGoneOnceTheNextIsOpen) {
  PanelHome home;
  countPanels();
  home.open();
  close(home, "tap \"close\"");
  home.open();
  EXPECT_EQ(living, 1);
  home.step("increment \"Top Inset\"");
  EXPECT_EQ(home.report()["relayouts"].size(), 1u);
}

// A press restarts the timers of all panels that still observe, and a timer keeps its panel.
TEST(CancelledPanels, AreKeptAsLongAsPressesFollowEachOther) {
  PanelHome home;
  countPanels();
  for (int round = 1; round <= 5; ++round) {
    home.controller().showPopup();
    home.wait(0.5);
    home.step("increment \"Top Inset\"");
    EXPECT_EQ(home.report()["relayouts"].size(), round * (round + 1) / 2) << "one pass for each of them";
    close(home, "tap \"close\"");
    EXPECT_EQ(living, round);
  }
  home.wait(3);
  EXPECT_EQ(living, 1);
}

TEST(CancelledPanel, OutlivesANotificationThatTakesItsTimerAway) {
  PanelHome home;
  countPanels();
  home.open();
  home.step("increment \"Top Inset\"");
  close(home, "tap \"close\"");
  home.controller().popView.set({});
  ASSERT_EQ(living, 1);
  NSNotificationCenter::defaultCenter().postNotificationName_object("slider_buttons_pressed"_ns, {});
  EXPECT_EQ(living, 1);
  home.wait(3.1);
  EXPECT_EQ(living, 0);
}

TEST(HiddenPanel, HearsNothingMore) {
  PanelHome home;
  home.open();
  auto hidden = bridge::retained(home.panel());
  close(home, "hide");
  size_t before = home.report()["relayouts"].size();
  home.open();
  home.step("increment \"Top Inset\"");
  EXPECT_EQ(hidden->alpha(), 1);
  EXPECT_EQ(home.report()["relayouts"].size(), before + 1);
}

TEST(Panel, IsKeptByItsOwnSlideWhenNobodyElseKeepsIt) {
  PanelHome home;
  countPanels();
  home.open();
  home.panel().didHitCancel();
  home.controller().popView.set({});
  home.wait(0.6);
  EXPECT_EQ(living, 1);
  home.wait(0.2);
  EXPECT_EQ(living, 0);
}

}  // namespace
