// What the report tells of the panel.
#include <gtest/gtest.h>

#include "tests/library/panel_home.hpp"

namespace {

using sim::Json;
using test::PanelHome;

std::vector<std::string> keysOf(const Json& object) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  return keys;
}

TEST(PanelReport, IsNullWithoutAPanel) {
  PanelHome home;
  EXPECT_TRUE(home.shown().isNull());
}

TEST(PanelReport, IsNullWithoutTheLibrary) {
  PanelHome home({}, {"--stock"});
  home.step("swipe up");
  EXPECT_TRUE(home.shown().isNull());
}

TEST(PanelReport, HasItsKeysInTheirOrder) {
  PanelHome home;
  home.open();
  EXPECT_EQ(keysOf(home.shown()),
            (std::vector<std::string>{"frame", "alpha", "background", "dark", "collapsed", "page", "rows",
                                      "presets", "selectedRow", "caption", "views"}));
  EXPECT_EQ(keysOf(home.shown()["rows"]),
            (std::vector<std::string>{"Horizontal Padding", "Vertical Padding", "Side Inset", "Top Inset"}));
  EXPECT_EQ(keysOf(home.shown()["rows"]["Side Inset"]),
            (std::vector<std::string>{"key", "value", "minimum", "maximum", "text", "error"}));
  EXPECT_EQ(keysOf(home.shown()["views"]),
            (std::vector<std::string>{"class", "frame", "alpha", "hidden", "transform", "background",
                                      "textColor", "text", "children"}));
}

TEST(PanelReport, TellsOfAPanelThatIsStillOnItsWay) {
  PanelHome home;
  home.controller().showPopup();
  EXPECT_EQ(home.shown()["frame"], Json({37.5, 842, 300, 390}));
  EXPECT_EQ(home.shown()["views"]["frame"], home.shown()["frame"]);
  home.wait(1);
  home.step("tap \"close\"");
  home.wait(0.6);
  EXPECT_FALSE(home.shown().isNull());
  home.wait(0.2);
  EXPECT_TRUE(home.shown().isNull());
}

TEST(PanelReport, ShowsAColourInTheMiddleOfItsAnimation) {
  PanelHome home;
  home.open();
  UIView panel = home.panel();
  UIView::animateWithDuration_animations(
      1, bridge::Block<void()>([panel] { panel.backgroundColor.set(UIColor::blackColor()); }));
  home.wait(0.5);
  EXPECT_EQ(home.shown()["background"], Json({125, 125, 125}));
  home.wait(0.5);
  EXPECT_EQ(home.shown()["background"], Json({0, 0, 0}));
}

TEST(PanelReport, HasTheMessageBesideANumberWhileItCanBeSeen) {
  PanelHome home;
  home.open();
  auto error = [&] { return home.shown()["rows"]["Side Inset"]["error"]; };
  home.panel().sideSlider().valueLabel().becomeFirstResponder();
  home.wait(1);
  home.panel().sideSlider().errorWithMessage("No"_ns);
  EXPECT_EQ(error(), nullptr);
  home.wait(0.2);
  EXPECT_EQ(error(), "No");
  home.wait(1);
  EXPECT_EQ(error(), "No");
  home.wait(1.6);
  EXPECT_EQ(error(), nullptr);
  EXPECT_EQ(home.shown()["rows"]["Top Inset"]["error"], nullptr);
}

TEST(PanelReport, FollowsTheTurnedPage) {
  PanelHome home;
  home.open();
  home.step("page 1");
  EXPECT_EQ(home.shown()["page"], 1);
  EXPECT_EQ(home.shown()["caption"], "No Saved Presets");
  EXPECT_EQ(home.shown()["presets"], Json::array());
}

// All that a hand can do, told by a script to a simulator of its own.
TEST(PanelStory, GoesFromTheSwipeToTheCross) {
  auto options = test::homeOptions("iPhone 7", test::panelSettings({"qsBackgroundColor=1"}),
                                   {"--script", "-", "--report", "-"});
  test::Run run = test::runSimulator(options, R"(
swipe up
wait 1
increment "Horizontal Padding" 2
decrement "Vertical Padding"
wait 3.2
slide "Side Inset" 40
wait 0.3
tap "collapse"
wait 0.5
drag 150 160 150 200 0.3
tap "collapse"
wait 0.5
page 1
page 0
increment "Top Inset"
wait 1
tap "close"
wait 1
)");
  ASSERT_EQ(run.status, 0) << run.errors;
  Json report = Json::parse(run.output);
  EXPECT_TRUE(report["panel"].isNull());
  EXPECT_EQ(report["preferences"]["horiIconPadding"], 29);
  EXPECT_EQ(report["preferences"]["vertIconPadding"], 13);
  EXPECT_NEAR(report["preferences"]["sideIconInset"].get<double>(), 40, 0.5);
  EXPECT_EQ(report["preferences"]["topIconInset"], 31);
  EXPECT_EQ(report["pages"][0]["horizontalPadding"], 29);
  EXPECT_EQ(report["pages"][0]["icons"][0]["frame"][1], 31);
}

}  // namespace
