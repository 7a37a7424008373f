// Whose a finger on the panel is: the card's, the pages', or a slider's.
#include <gtest/gtest.h>

#include "simulator/device/usage_error.hpp"
#include "simulator/product/rows.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;
using tilo::RQPopupView;

constexpr double left = 37.5, top = 138.5;  // of the card at rest

std::string words(CGPoint from, CGPoint to, double seconds) {
  return std::to_string(from.x) + " " + std::to_string(from.y) + " " + std::to_string(to.x) + " " +
         std::to_string(to.y) + " " + std::to_string(seconds);
}

void drag(PanelHome& home, CGPoint from, CGPoint by, double seconds = 0.3) {
  home.step("drag " + words(from, {from.x + by.x, from.y + by.y}, seconds));
}

CGPoint origin(PanelHome& home) { return home.panel().frame().origin; }
double offset(PanelHome& home) { return home.panel().scrollView().contentOffset().x; }

// Between the caption and the Add button, on a caption, beside a slider, on a slider away from its thumb.
constexpr CGPoint onScrollView{left + 195, top + 47}, onCaption{left + 40, top + 48},
    besideSlider{left + 290, top + 200}, onSlider{left + 200, top + 120}, onHeader{left + 100, top + 15};

sim::product::Row topRow() { return sim::product::rowNamed("Top Inset"); }

struct Place {
  const char* what;
  CGPoint point;

  friend void PrintTo(const Place& place, std::ostream* stream) { *stream << place.what; }
};

class HorizontalDrag : public testing::TestWithParam<Place> {};

TEST_P(HorizontalDrag, InsideThePagesTurnsThem) {
  PanelHome home;
  home.open();
  drag(home, {left + 290, GetParam().point.y}, {-200, 3});
  home.wait(1);
  EXPECT_EQ(offset(home), 300);
  EXPECT_EQ(origin(home), (CGPoint{left, top}));
  EXPECT_EQ(home.shown()["page"], 1);
  drag(home, {left + 5, GetParam().point.y}, {200, 3});
  home.wait(1);
  EXPECT_EQ(offset(home), 0);
  EXPECT_EQ(home.shown()["page"], 0);
  EXPECT_EQ(origin(home), (CGPoint{left, top}));
}

INSTANTIATE_TEST_SUITE_P(Places, HorizontalDrag,
                         testing::Values(Place{"caption", onCaption}, Place{"margin", besideSlider}));

TEST(PanelTouch, ThatGoesSidewaysOnASliderTurnsThePage) {
  PanelHome home;
  home.open();
  float before = home.panel().horSlider().value();
  drag(home, {left + 260, onSlider.y}, {-220, 0});
  home.wait(1);
  EXPECT_EQ(offset(home), 300);
  EXPECT_EQ(home.panel().horSlider().value(), before);
  EXPECT_EQ(origin(home), (CGPoint{left, top}));
}

TEST(PanelTouch, ThatDragsAThumbTurnsNoPageAndMovesNoCard) {
  PanelHome home;
  home.open();
  sim::product::Row row = topRow();
  drag(home, placeOfThumb(row), {120, 0});
  home.wait(1);
  EXPECT_EQ(offset(home), 0);
  EXPECT_EQ(origin(home), (CGPoint{left, top}));
  EXPECT_GT(home.panel().topSlider().value(), 100);
}

class VerticalDrag : public testing::TestWithParam<Place> {};

TEST_P(VerticalDrag, InsideThePagesDragsTheCard) {
  PanelHome home;
  home.open();
  drag(home, GetParam().point, {-4, 120});
  EXPECT_NEAR(origin(home).x, left - 4, 1e-9);
  EXPECT_NEAR(origin(home).y, top + 120, 1e-9);
  EXPECT_EQ(offset(home), 0);
}

INSTANTIATE_TEST_SUITE_P(Places, VerticalDrag,
                         testing::Values(Place{"page", onScrollView}, Place{"caption", onCaption},
                                         Place{"margin", besideSlider}));

TEST(PanelTouch, OnTheHeaderDragsTheCardWhicheverWay) {
  PanelHome home;
  home.open();
  drag(home, onHeader, {-90, 0});
  EXPECT_NEAR(origin(home).x, left - 90, 1e-9);
  EXPECT_EQ(offset(home), 0);
}

TEST(PanelTouch, OnASliderNeverDragsTheCard) {
  PanelHome home;
  home.open();
  for (CGPoint by : {CGPoint{0, 100}, CGPoint{0, -100}, CGPoint{60, 100}}) drag(home, onSlider, by);
  drag(home, placeOfThumb(topRow()), {0, -80});
  EXPECT_EQ(origin(home), (CGPoint{left, top}));
}

TEST(PanelTouch, ThatDragsByAPlusButtonDragsTheCard) {
  PanelHome home;
  home.open();
  sim::product::Row row = topRow();
  drag(home, placeOf(row, row.plus, "plus button"), {0, -100});
  EXPECT_NEAR(origin(home).y, top - 100, 1e-9);
  EXPECT_EQ(home.stored("topIconInset"_ns), 30) << "the button has lost the finger";
}

TEST(PanelTouch, ThatDragsByANumberFieldDragsTheCard) {
  PanelHome home;
  home.open();
  sim::product::Row row = topRow();
  drag(home, placeOf(row, row.field, "field"), {0, -100});
  EXPECT_NEAR(origin(home).y, top - 100, 1e-9);
}

// The panel's recogniser, by where the finger comes down.
UIView hit(PanelHome& home, UIView part) {
  CGRect bounds = part.bounds();
  CGPoint middle{bounds.origin.x + bounds.size.width / 2, bounds.origin.y + bounds.size.height / 2};
  return home.panel().hitTest_withEvent(part.convertPoint_toView(middle, home.panel()), {});
}

TEST(PanelHitTest, SwitchesTheCardsPanOffOverEachOfTheSliders) {
  PanelHome home;
  home.open();
  RQPopupView panel = home.panel();
  for (tilo::ColorSlider slider :
       {panel.horSlider(), panel.vertSlider(), panel.sideSlider(), panel.topSlider()}) {
    panel.pan().enabled.set(YES);
    panel.scrollView().scrollEnabled.set(NO);
    EXPECT_EQ(hit(home, slider), slider);
    EXPECT_FALSE(panel.pan().enabled());
    EXPECT_TRUE(panel.scrollView().scrollEnabled());
  }
}

TEST(PanelHitTest, LeavesItOnOverASlidersParts) {
  PanelHome home;
  home.open();
  RQPopupView panel = home.panel();
  tilo::ColorSlider slider = panel.vertSlider();
  for (UIView part :
       {UIView(slider.addButton()), UIView(slider.subtractButton()), UIView(slider.valueLabel())}) {
    panel.pan().enabled.set(NO);
    panel.scrollView().scrollEnabled.set(NO);
    UIView found = hit(home, part);
    EXPECT_TRUE(found && found.isDescendantOfView(part));
    EXPECT_TRUE(panel.pan().enabled());
    EXPECT_TRUE(panel.scrollView().scrollEnabled());
  }
}

TEST(PanelHitTest, SwitchesItOnElsewhereAndOutside) {
  PanelHome home;
  home.open();
  RQPopupView panel = home.panel();
  for (CGPoint place : {CGPoint{100, 15}, CGPoint{195, 47}, CGPoint{-20, -20}}) {
    panel.pan().enabled.set(NO);
    UIView found = panel.hitTest_withEvent(place, {});
    EXPECT_EQ(static_cast<bool>(found), place.x > 0);
    EXPECT_TRUE(panel.pan().enabled());
  }
}

TEST(PanelHitTest, ChangesNothingAboutWhatIsHit) {
  PanelHome home;
  home.open();
  RQPopupView panel = home.panel();
  EXPECT_EQ(hit(home, panel.toggleButton()), panel.toggleButton());
  EXPECT_EQ(hit(home, panel.addButton()), panel.addButton());
  EXPECT_EQ(panel.hitTest_withEvent({100, 15}, {}), panel.contentView());
}

TEST(PanelTouch, OnASliderSwitchesTheCardsPanOffUntilTheNextElsewhere) {
  PanelHome home;
  home.open();
  home.finger("down", onSlider);
  EXPECT_FALSE(home.panel().pan().enabled());
  home.finger("up", onSlider);
  EXPECT_FALSE(home.panel().pan().enabled());
  home.finger("down", onHeader);
  EXPECT_TRUE(home.panel().pan().enabled());
  home.finger("up", onHeader);
}

// The slider's finger switches off the recogniser that has the other one.
TEST(PanelTouch, OfASecondFingerOnASliderEndsTheDragOfTheFirst) {
  PanelHome home;
  home.open();
  home.finger("down", onHeader);
  home.finger("move", {onHeader.x, onHeader.y + 20});
  ASSERT_EQ(origin(home).y, top + 20);
  home.step("finger 2 down " + std::to_string(onSlider.x) + " " + std::to_string(onSlider.y + 20));
  home.finger("move", {onHeader.x, onHeader.y + 60});
  EXPECT_EQ(origin(home).y, top + 20);
}

// A page turns when half of it has been passed.
class PageDot : public testing::TestWithParam<std::pair<double, int>> {};

TEST_P(PageDot, IsThatOfTheNearestPage) {
  PanelHome home;
  home.open();
  auto [to, page] = GetParam();
  home.panel().scrollView().contentOffset.set({to, 0});
  EXPECT_EQ(home.shown()["page"], page);
}

INSTANTIATE_TEST_SUITE_P(Offsets, PageDot,
                         testing::Values(std::pair{0., 0}, std::pair{149.5, 0}, std::pair{150., 1},
                                         std::pair{150.5, 1}, std::pair{300., 1}, std::pair{-60., 0},
                                         std::pair{-200., 0}, std::pair{449., 1}, std::pair{451., 1}));

TEST(PageDots, FollowTheFinger) {
  PanelHome home;
  home.open();
  home.finger("down", besideSlider);
  home.finger("move", {besideSlider.x - 20, besideSlider.y});
  home.finger("move", {besideSlider.x - 149, besideSlider.y});
  EXPECT_EQ(home.shown()["page"], 0);
  home.finger("move", {besideSlider.x - 151, besideSlider.y});
  EXPECT_EQ(home.shown()["page"], 1);
  home.finger("move", {besideSlider.x - 100, besideSlider.y});
  EXPECT_EQ(home.shown()["page"], 0);
  home.finger("up", {besideSlider.x - 100, besideSlider.y});
}

TEST(PageStep, TurnsThePanelThereAndBack) {
  PanelHome home;
  home.open();
  for (int page : {1, 0, 0, 1, 1, 0}) {
    double before = home.report()["time"];
    home.step("page " + std::to_string(page));
    EXPECT_EQ(home.shown()["page"], page);
    EXPECT_EQ(offset(home), 300 * page);
    EXPECT_EQ(home.report()["time"], before);
  }
  EXPECT_EQ(origin(home), (CGPoint{left, top}));
}

TEST(PageStep, WorksOnTheNarrowestScreen) {
  PanelHome home({}, {}, "iPhone 5");
  home.open();
  home.step("page 1");
  EXPECT_EQ(offset(home), 300);
  home.step("page 0");
  EXPECT_EQ(offset(home), 0);
}

TEST(PageStep, NeedsAPanel) {
  PanelHome home;
  EXPECT_THROW(home.step("page 1"), sim::UsageError);
}

TEST(PanelThings, OnTheOtherPageAreOutOfSight) {
  PanelHome home({}, {}, "iPad Pro (12.9-inch)");
  home.open();
  home.step("page 1");
  for (const char* step : {"tap \"Add\"", "increment \"Top Inset\"", "slide \"Top Inset\" 50"}) try {
      home.step(step);
      FAIL() << step;
    } catch (const sim::UsageError& error) {
      EXPECT_NE(std::string(error.what()).find("is out of sight"), std::string::npos) << error.what();
    }
}

TEST(PanelThings, TakeNoFingerWhileThePanelSlides) {
  PanelHome home;
  home.controller().showPopup();
  home.wait(0.2);
  EXPECT_THROW(home.step("tap \"close\""), sim::UsageError);
  home.wait(0.3);
  home.step("tap \"close\"");
  home.wait(0.2);
  EXPECT_THROW(home.step("tap \"close\""), sim::UsageError);
}

TEST(PanelThings, ThatAreDisabledCannotBePressed) {
  PanelHome home;
  home.open();
  home.panel().topSlider().addButton().enabled.set(NO);
  EXPECT_THROW(home.step("increment \"Top Inset\""), sim::UsageError);
  home.step("decrement \"Top Inset\"");
  EXPECT_EQ(home.stored("topIconInset"_ns), 29);
}

TEST(PanelThings, ThatAreCoveredCannotBePressed) {
  PanelHome home;
  home.open();
  auto cover = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{0, 0}, {375, 667}});
  home.panel().window().addSubview(cover);
  for (const char* step : {"tap \"close\"", "tap \"collapse\"", "increment \"Top Inset\"", "page 1"})
    EXPECT_THROW(home.step(step), sim::UsageError) << step;
}

TEST(PanelThings, HaveNoNamesWithoutAPanel) {
  PanelHome home;
  for (const char* step : {"tap \"close\"", "tap \"collapse\"", "increment \"Top Inset\""})
    EXPECT_THROW(home.step(step), sim::UsageError) << step;
}

}  // namespace
