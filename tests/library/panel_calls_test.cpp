// What the panel does that none of its controls asks for: exporting the layout and opening the settings.
#include <gtest/gtest.h>

#include "platform/springboard/icon_list_view.hpp"
#include "simulator/device/usage_error.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using sim::Json;
using test::layouts;
using test::PanelHome;
using test::PresetsHome;

// Fails the test when the step can be done; what it says otherwise.
std::string refusal(PanelHome& home, const std::string& step) {
  try {
    home.step(step);
  } catch (const sim::UsageError& error) {
    return error.what();
  }
  ADD_FAILURE() << step << " can be done";
  return "";
}

CGFloat side(SBRootIconListView) { return 41.5; }
CGFloat top(SBRootIconListView) { return 42.5; }
CGFloat horizontal(SBRootIconListView) { return 43.5; }
CGFloat vertical(SBRootIconListView) { return 44.5; }

// What the first page itself answers, so that each value shows whose it is.
void standInForSpacing() {
  test::standIn<SBRootIconListView, &SBIconListView::sideIconInset, side>();
  test::standIn<SBRootIconListView, &SBIconListView::topIconInset, top>();
  test::standIn<SBRootIconListView, &SBIconListView::horizontalIconPadding, horizontal>();
  test::standIn<SBRootIconListView, &SBIconListView::verticalIconPadding, vertical>();
}

TEST(Export, StoresWhatTheIconListAnswers) {
  PanelHome home({"enabled=YES"});
  home.open();
  standInForSpacing();
  home.step("call exportSettings");
  const Json stored = home.report()["preferences"];
  EXPECT_EQ(stored["sideIconInset"], 41.5);
  EXPECT_EQ(stored["topIconInset"], 42.5);
  EXPECT_EQ(stored["horiIconPadding"], 43.5);
  EXPECT_EQ(stored["vertIconPadding"], 44.5);
}

TEST(Export, StoresFloats) {
  PanelHome home;
  home.open();
  standInForSpacing();
  home.step("call exportSettings");
  for (const char* key : {"sideIconInset", "topIconInset", "horiIconPadding", "vertIconPadding"}) {
    NSString named = NSString::stringWithUTF8String(key);
    EXPECT_EQ(*bridge::as<NSNumber>(home.controller().rootObj().objectForKey(named)).objCType(), 'f') << key;
  }
}

TEST(Export, OfAChosenLayoutStoresItsSpacing) {
  PresetsHome home({test::layout("a", 0, 7)}, {"custom_preset=0"});
  home.open();
  home.step("call exportSettings");
  const Json stored = home.report()["preferences"];
  EXPECT_EQ(stored["horiIconPadding"], 7);
  EXPECT_EQ(stored["vertIconPadding"], 8);
  EXPECT_EQ(stored["sideIconInset"], 9);
  EXPECT_EQ(stored["topIconInset"], 10);
  EXPECT_EQ(stored["custom_preset"], 0);
}

TEST(Export, SaysThatItIsDoneForAMoment) {
  PanelHome home;
  home.open();
  home.step("call exportSettings");
  home.wait(0.5);
  const Json notice = home.report()["hud"];
  EXPECT_EQ(notice["text"], "Exported Current Icon Layout");
  EXPECT_EQ(notice["mode"], 5);
  EXPECT_EQ(notice["alpha"], 1);
  home.wait(0.6);
  EXPECT_EQ(home.report()["hud"], nullptr);
}

TEST(Export, FadesItsNoticeIn) {
  PanelHome home;
  home.open();
  home.step("call exportSettings");
  EXPECT_EQ(home.report()["hud"]["alpha"], 0);
  home.wait(0.15);
  EXPECT_NEAR(home.report()["hud"]["alpha"].get<double>(), 0.5, 0.01);
}

TEST(OpenSettings, OpensTheSettingsAndClosesThePanel) {
  PanelHome home;
  home.open();
  home.step("call openSettings");
  EXPECT_EQ(home.report()["openedURLs"], Json::array({"prefs:root=Tilo"}));
  home.wait(1);
  EXPECT_EQ(home.report()["panel"], nullptr);
}

TEST(OpenSettings, LeavesNothingToSwipeWhileItOpens) {
  PanelHome home;
  home.open();
  home.step("call openSettings");
  home.step("swipe up");
  home.wait(1);
  EXPECT_EQ(home.report()["panel"], nullptr);
  home.step("home");
  home.wait(1);
  home.open();
  EXPECT_NE(home.report()["panel"], nullptr);
}

BOOL refusedURL(UIApplication, NSURL) { return NO; }

TEST(OpenSettings, ClosesThePanelThoughNothingOpens) {
  PanelHome home;
  home.open();
  test::standIn<UIApplication, &UIApplication::openURL, refusedURL>();
  home.step("call openSettings");
  home.wait(1);
  EXPECT_EQ(home.report()["panel"], nullptr);
}

TEST(Call, NeedsAPanel) {
  PanelHome home;
  EXPECT_EQ(refusal(home, "call exportSettings"), "test:1: there is no panel");
  EXPECT_EQ(home.report()["openedURLs"], Json::array());
}

TEST(Call, IsForTwoMessagesAlone) {
  PanelHome home;
  home.open();
  EXPECT_EQ(refusal(home, "call didHitDone"),
            "test:1: 'didHitDone' is not what 'call exportSettings|openSettings' takes");
}

TEST(Pick, NeedsAPicker) {
  PanelHome home;
  EXPECT_EQ(refusal(home, "pick 0"), "test:1: there is no picker");
}

TEST(Pick, NeedsThePickerInSight) {
  PresetsHome home(layouts({"a", "b"}));
  home.open();
  EXPECT_TRUE(refusal(home, "pick 1").starts_with("test:1: the picker is ")) << refusal(home, "pick 1");
}

TEST(Pick, NeedsARowThatThereIs) {
  PresetsHome home(layouts({"a", "b"}));
  home.openPresets();
  EXPECT_EQ(refusal(home, "pick 2"), "test:1: the picker has no row 2, only 2 rows");
  for (const char* row : {"-1", "1.5", "one", "\"1\""})
    EXPECT_NE(refusal(home, std::string("pick ") + row).find("is not what 'pick ROW' takes"),
              std::string::npos);
}

TEST(Pick, OfAWheelThatAFingerHoldsIsRefused) {
  PresetsHome home(layouts({"a", "b", "c"}));
  home.openPresets();
  const UIPickerView wheel = home.panel().pickerView();
  const CGRect bounds = wheel.bounds();
  const CGPoint middle =
      wheel.convertPoint_toView({bounds.size.width / 2, bounds.size.height / 2}, wheel.window());
  home.finger("down", middle);
  home.finger("move", {middle.x, middle.y + 30});
  EXPECT_EQ(refusal(home, "pick 2"), "test:1: the picker does not turn");
}

TEST(Pick, TakesNoTime) {
  PresetsHome home(layouts({"a", "b", "c"}));
  home.openPresets();
  const Json before = home.report()["time"];
  home.step("pick 2");
  EXPECT_EQ(home.report()["time"], before);
  EXPECT_EQ(home.panel().rowSelected(), 2);
}

TEST(Pick, OfTheRowWhereTheWheelStandsTellsOfItAllTheSame) {
  PresetsHome home(layouts({"a", "b", "c"}));
  home.openPresets();
  home.panel().rowSelected.set(2);
  home.step("pick 0");
  EXPECT_EQ(home.panel().rowSelected(), 0);
}

TEST(Pick, StopsAWheelThatIsTurning) {
  PresetsHome home(layouts({"a", "b", "c", "d", "e", "f", "g", "h"}));
  home.openPresets();
  home.step("drag 187 370 187 300 0.05");
  home.step("pick 1");
  home.wait(2);
  EXPECT_EQ(home.panel().rowSelected(), 1);
  EXPECT_EQ(home.shown()["selectedRow"], 1);
}

TEST(Choose, NeedsAnAlertWithThatButton) {
  PanelHome home;
  EXPECT_EQ(refusal(home, "choose \"Add\""), "test:1: there is no alert");
  home.open();
  EXPECT_EQ(refusal(home, "choose \"Add\""), "test:1: there is no alert");
  home.step("tap \"Add\"");
  EXPECT_EQ(refusal(home, "choose \"Okay\""), "test:1: nothing is called \"Okay\"");
}

TEST(Choose, LastsUntilTheAlertHasGone) {
  PanelHome home;
  home.open();
  home.step("tap \"Add\"");
  home.wait(1);
  const double before = home.report()["time"];
  home.step("choose \"Cancel\"");
  EXPECT_NEAR(home.report()["time"].get<double>() - before, 0.25, 1e-6);
}

TEST(Enter, NeedsAFieldInAnAlert) {
  PresetsHome home(layouts({"a"}));
  EXPECT_EQ(refusal(home, "enter \"x\""), "test:1: there is no alert");
  home.openPresets();
  home.step("tap \"Select\"");
  EXPECT_EQ(refusal(home, "enter \"x\""), "test:1: the alert has no text field");
}

TEST(Enter, GoesOnBehindWhatIsThere) {
  PanelHome home;
  home.open();
  home.step("tap \"Add\"");
  home.step("enter \"Ho\"");
  home.step("enter \"me\"");
  EXPECT_EQ(home.report()["alert"]["text"], "Home");
}

TEST(Enter, TakesATenthOfASecondForEachCharacter) {
  PanelHome home;
  home.open();
  home.step("tap \"Add\"");
  const double before = home.report()["time"];
  home.step("enter \"aé日\"");
  EXPECT_NEAR(home.report()["time"].get<double>() - before, 0.3, 1e-6);
}

TEST(Enter, WantsItsTextInQuotes) {
  PanelHome home;
  EXPECT_EQ(refusal(home, "enter Home"), "test:1: 'Home' is not what 'enter \"TEXT\"' takes");
}

}  // namespace
