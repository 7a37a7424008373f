// What a press on the panel's controls does, and at which moment of it; what a finger on each slider leaves
// alone.
#include <gtest/gtest.h>

#include "controls/progress_hud.hpp"
#include "simulator/input/find.hpp"
#include "simulator/product/rows.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;

class PanelPress : public testing::TestWithParam<const char*> {
 protected:
  PanelHome home;
  void SetUp() override {
    home.open();
    if (std::string(GetParam()) == "Select") home.step("page 1");
    home.wait(1);
  }
  // Where the card is, and how high; nothing when it has gone.
  sim::Json card() { return home.shown() == nullptr ? sim::Json() : home.shown()["frame"]; }
};

TEST_P(PanelPress, ActsWhenTheFingerIsLifted) {
  const CGPoint place = sim::input::findNamed(GetParam());
  const sim::Json before = card();
  home.finger("down", place);
  home.wait(1);
  EXPECT_EQ(card(), before);
  home.finger("up", place);
  home.wait(1);
  EXPECT_NE(card(), before);
}

INSTANTIATE_TEST_SUITE_P(Of, PanelPress, testing::Values("close", "collapse", "Select"));

// Only a finger that is lifted over the slider ends the sliding.
TEST(PanelFading, GoesOnWhenAThumbIsLetGoBesideTheSlider) {
  PanelHome home;
  home.open();
  const sim::product::Row row = sim::product::rowNamed("Horizontal Padding");
  const CGPoint from = placeOfThumb(row), to = placeOfThumb(row, 60), outside{to.x, to.y + 150};
  home.finger("down", from);
  home.wait(0.2);
  home.finger("move", to);
  home.wait(0.3);
  home.finger("move", outside);
  home.finger("up", outside);
  home.wait(2);
  EXPECT_EQ(home.shown()["alpha"], 0.5);
}

class PanelSlider : public testing::TestWithParam<const char*> {};

TEST_P(PanelSlider, KeepsTheCardFromTheFinger) {
  PanelHome home;
  home.open();
  const sim::product::Row row = sim::product::rowNamed(GetParam());
  const CGPoint place = placeOf(row, row.slider, "slider");
  const CGRect before = home.panel().frame();
  home.finger("down", place);
  for (double by : {20, 40, 60}) {
    home.wait(0.05);
    home.finger("move", {place.x, place.y + by});
  }
  home.finger("up", {place.x, place.y + 60});
  EXPECT_EQ(home.panel().frame(), before);
}

INSTANTIATE_TEST_SUITE_P(Of, PanelSlider,
                         testing::Values("Horizontal Padding", "Vertical Padding", "Side Inset",
                                         "Top Inset"));

TEST(Export, SaysSoForSevenTenthsOfASecond) {
  PanelHome home;
  home.open();
  home.step("call exportSettings");
  home.wait(0.69);
  EXPECT_EQ(home.report()["hud"]["alpha"], 1);
  home.wait(0.06);
  EXPECT_LT(home.report()["hud"]["alpha"].get<double>(), 1);
}

TEST(Export, SaysSoInTheMiddleOfThePanel) {
  PanelHome home;
  home.open();
  home.step("call exportSettings");
  const NSArray parts = home.panel().subviews();
  const auto notice = bridge::as<UIView>(parts.objectAtIndex(parts.count() - 1));
  ASSERT_TRUE(bridge::isKindOf<tilo::RQProgressHUD>(notice));
  EXPECT_EQ(notice.frame(), home.panel().bounds());
  EXPECT_TRUE(notice.superview() == home.panel());
}

}  // namespace
