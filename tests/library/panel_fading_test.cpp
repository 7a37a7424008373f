// The panel steps back while a value changes, and comes again.
#include <gtest/gtest.h>

#include "platform/foundation/notification_center.hpp"
#include "simulator/product/rows.hpp"
#include "tests/library/key_value.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;
using tilo::RQPopupView;

double alpha(PanelHome& home) { return home.shown()["alpha"]; }

// A press of the plus button, up to the moment at which the finger lifts.
void press(PanelHome& home, const char* caption = "Top Inset") {
  sim::product::Row row = sim::product::rowNamed(caption);
  CGPoint place = placeOf(row, row.plus, "plus button");
  home.step("tap " + std::to_string(place.x) + " " + std::to_string(place.y));
}

TEST(PanelFading, GoesToHalfInAFifthOfASecond) {
  PanelHome home;
  home.open();
  press(home);
  EXPECT_EQ(alpha(home), 1);
  home.wait(0.1);
  EXPECT_NEAR(alpha(home), 0.75, 1e-4);
  home.wait(0.1);
  EXPECT_EQ(alpha(home), 0.5);
}

TEST(PanelFading, EndsThreeSecondsAfterAPress) {
  PanelHome home;
  home.open();
  press(home);
  home.wait(2.999);
  EXPECT_EQ(alpha(home), 0.5);
  home.wait(0.001 + 0.1);
  EXPECT_NEAR(alpha(home), 0.75, 1e-3);
  home.wait(0.1);
  EXPECT_EQ(alpha(home), 1);
}

TEST(PanelFading, IsOneForFivePressesAndEndsThreeSecondsAfterTheFifth) {
  PanelHome home;
  home.open();
  for (int i = 0; i < 5; ++i) {
    press(home);
    home.wait(0.25);
    EXPECT_EQ(alpha(home), 0.5) << i;
  }
  // The fifth was a quarter of a second ago.
  home.wait(2.74);
  EXPECT_EQ(alpha(home), 0.5);
  home.wait(0.01 + 0.21);
  EXPECT_EQ(alpha(home), 1);
}

std::vector<double> faded;
void noteAlpha(RQPopupView self, CGFloat value) {
  if (value != self.alpha()) faded.push_back(value);
  bridge::original<noteAlpha>(self, value);
}

TEST(PanelFading, HappensOnceForFivePresses) {
  PanelHome home;
  home.open();
  test::standIn<RQPopupView, bridge::setterOf<&UIView::alpha>, noteAlpha>();
  home.step("increment \"Top Inset\" 5");
  home.wait(4);
  EXPECT_EQ(faded, (std::vector<double>{0.5, 1}));
}

TEST(PanelFading, BeginsItsThreeSecondsAnewWithEveryPress) {
  PanelHome home;
  home.open();
  press(home);
  NSTimer first = home.panel().moveTimer();
  auto kept = bridge::retained(first);
  home.wait(2);
  press(home, "Side Inset");
  EXPECT_FALSE(kept->isValid());
  EXPECT_NE(home.panel().moveTimer().raw, first.raw);
  home.wait(2.9);
  EXPECT_EQ(alpha(home), 0.5);
  home.wait(0.4);
  EXPECT_EQ(alpha(home), 1);
}

TEST(PanelFading, IsTimedOnce) {
  PanelHome home;
  home.open();
  press(home);
  auto timer = bridge::retained(home.panel().moveTimer());
  EXPECT_TRUE(timer->isValid());
  home.wait(3.1);
  EXPECT_FALSE(timer->isValid());
}

TEST(PanelFading, EndsAtOnceWhenAThumbIsLetGo) {
  PanelHome home;
  home.open();
  sim::product::Row row = sim::product::rowNamed("Top Inset");
  CGPoint from = placeOfThumb(row), to = placeOfThumb(row, 200);
  home.finger("down", from);
  home.wait(0.2);
  home.finger("move", to);
  home.wait(0.3);
  EXPECT_EQ(alpha(home), 0.5);
  home.wait(5);
  EXPECT_EQ(alpha(home), 0.5) << "as long as the finger is down";
  home.finger("up", to);
  home.wait(0.1);
  EXPECT_NEAR(alpha(home), 0.75, 1e-4);
  home.wait(0.1);
  EXPECT_EQ(alpha(home), 1);
  EXPECT_FALSE(home.panel().moveTimer());
}

// The timer of an earlier press knows nothing of the finger that drags meanwhile.
TEST(PanelFading, EndsByAnEarlierPressesTimerInTheMiddleOfADrag) {
  PanelHome home;
  home.open();
  press(home);
  home.wait(2.5);
  sim::product::Row row = sim::product::rowNamed("Top Inset");
  home.finger("down", placeOfThumb(row));
  home.wait(0.2);
  home.finger("move", placeOfThumb(row, 100));
  EXPECT_EQ(alpha(home), 0.5);
  home.wait(0.6);
  EXPECT_EQ(alpha(home), 1);
  home.finger("move", placeOfThumb(row, 120));
  home.wait(0.3);
  EXPECT_EQ(alpha(home), 0.5);
}

TEST(PanelFading, IsEndedByAThumbWithoutStoppingTheTimer) {
  PanelHome home;
  home.open();
  press(home);
  home.wait(1);
  auto timer = bridge::retained(home.panel().moveTimer());
  home.step("slide \"Top Inset\" 60");
  EXPECT_TRUE(timer->isValid());
  home.wait(0.3);
  EXPECT_EQ(alpha(home), 1);
  home.wait(2);
  EXPECT_FALSE(timer->isValid());
  EXPECT_EQ(alpha(home), 1);
}

TEST(PanelFading, HidesNothingFromTheFinger) {
  PanelHome home;
  home.open();
  press(home);
  home.wait(0.25);
  ASSERT_EQ(alpha(home), 0.5);
  home.step("tap \"close\"");
  home.wait(1);
  EXPECT_TRUE(home.shown().isNull());
}

TEST(PanelDraggingOfAThumb, StoresAValueForEveryMove) {
  PanelHome home;
  home.open();
  sim::product::Row row = sim::product::rowNamed("Side Inset");
  home.finger("down", placeOfThumb(row));
  home.wait(0.2);
  CGPoint start = placeOfThumb(row);
  auto last = home.stored("sideIconInset"_ns).get<float>();
  for (int i = 1; i <= 10; ++i) {
    home.finger("move", {start.x + 5.0 * i, start.y});
    auto now = home.stored("sideIconInset"_ns).get<float>();
    EXPECT_GT(now, last) << i;
    EXPECT_EQ(now, home.panel().sideSlider().value());
    EXPECT_EQ(home.live("sideIconInset"_ns), now);
    EXPECT_EQ(home.report()["relayouts"].size(), i);
    last = now;
  }
  home.finger("up", {start.x + 50, start.y});
  EXPECT_EQ(home.stored("sideIconInset"_ns).get<float>(), last);
}

}  // namespace
