// The page in Settings as a whole: how one gets there and away, and what it makes of values that cannot be.
#include <filesystem>
#include <fstream>

#include "platform/uikit/slider.hpp"
#include "platform/uikit/switch.hpp"
#include "simulator/device/usage_error.hpp"
#include "tests/preferences/pane_home.hpp"
#include "tests/support/files.hpp"

namespace {

using sim::Json;
using test::PaneHome;

BOOL isOn(const char* title) { return bridge::as<UISwitch>(PaneHome::control(title)).on(); }
float value(const char* title) { return bridge::as<UISlider>(PaneHome::control(title)).value(); }
double count(const char* title) { return PaneHome::stepper(title).value(); }

TEST(Pane, IsOpenedByTheStepAndLeftByTheHomeButton) {
  PaneHome home;
  EXPECT_EQ(home.report()["application"], Json("Settings"));
  home.leave();
  EXPECT_EQ(home.report()["application"], Json());
}

TEST(Pane, IsWhereThePanelsAddressLeads) {
  test::Home home;
  home.step("swipe up");
  home.step("wait 1");
  home.step("call openSettings");
  home.step("wait 1");
  EXPECT_EQ(home.report()["application"], Json("Settings"));
  EXPECT_TRUE(sim::preferences::shownCell("Rows"));
}

TEST(Pane, IsAPageOfSettings) {
  test::Home home;
  home.step("launch \"Settings\"");
  home.step("wait 0.5");
  home.step("tap \"Tilo\"");
  home.step("wait 0.5");
  EXPECT_TRUE(sim::preferences::shownCell("Rows"));
  home.step("tap \"Settings\"");
  home.step("wait 0.5");
  EXPECT_FALSE(sim::preferences::shownCell("Rows"));
}

TEST(Pane, IsNotThereWithoutTheLibrary) {
  test::Home home({"--stock"});
  EXPECT_THROW(home.step("settings"), sim::UsageError);
}

TEST(Pane, IsTheHostsOwnWhereAPackageHasBroughtTheDevices) {
  test::Home home({}, [](sim::Simulation& device) {
    const std::filesystem::path file =
        device.fileSystem().hostPath("/Library/PreferenceBundles/Tilo.bundle/Tilo");
    std::filesystem::remove(file);
    std::ofstream(file) << "\xCA\xFE\xBA\xBE";
  });
  home.step("settings");
  EXPECT_TRUE(sim::preferences::shownCell("Rows"));
}

TEST(Pane, SaysSoWhenItCannotBeLoaded) {
  test::Home home({}, [](sim::Simulation& device) {
    std::filesystem::remove(device.fileSystem().hostPath("/Library/PreferenceBundles/Tilo.bundle/Tilo"));
  });
  EXPECT_THROW(home.step("settings"), sim::UsageError);
}

TEST(Pane, SaysSoWhenARowsClassIsMissing) {
  test::Home home({}, [](sim::Simulation& device) {
    const std::filesystem::path file =
        device.fileSystem().hostPath("/Library/PreferenceBundles/Tilo.bundle/Root.plist");
    std::string text = test::contentsOf(file);
    const std::string name = "TiloStepperCell";
    text.replace(text.find(name), name.size(), "NobodysCell");
    std::ofstream(file) << text;
  });
  home.step("settings");
  EXPECT_THROW(sim::preferences::shownCell("Rows"), sim::UsageError);
}

TEST(Pane, StandsBesideTheListOnATablet) {
  PaneHome home({"--device", "iPad Air 2"});
  EXPECT_TRUE(sim::preferences::shownCell("Rows"));
  home.toggle("Square Icons");
  EXPECT_EQ(home.stored("square"), Json(true));
}

TEST(Pane, ShowsTheNearestAllowedValueAndWritesNothingUntilTouched) {
  PaneHome home({"--set", "rows=99", "--set", "columns=many", "--set", "dock=YES please", "--set",
                 "enabled=1", "--set", "qsBackgroundColor=12", "--set", "sideIconInset=-5", "--set",
                 "labels=YES", "--set", "topIconInset=3e9"});
  const std::string before = home.contents(test::preferencesPath);
  EXPECT_EQ(count("Rows"), 15);
  EXPECT_EQ(count("Columns"), 1);
  EXPECT_EQ(value("Side Inset"), 0);
  EXPECT_EQ(value("Top Inset"), 600);
  EXPECT_TRUE(isOn("Enabled"));
  EXPECT_TRUE(isOn("Show Icon Labels"));
  EXPECT_FALSE(isOn("Square Icons"));
  EXPECT_EQ(home.contents(test::preferencesPath), before);
  home.count("Rows", 14);
  EXPECT_EQ(home.stored("rows"), 14.0);
  EXPECT_EQ(home.stored("columns"), Json("many"));
}

// A library that is installed and has not started yet writes its first values only where there is no file.
TEST(Pane, ShowsAndWritesTheFirstValuesBeforeTheFirstStart) {
  PaneHome home;
  const Json first = home.stored("enabled") == Json(true) ? home.report()["preferences"] : Json();
  home.leave();
  std::filesystem::remove(home.file(test::preferencesPath));
  home.step("settings");
  EXPECT_TRUE(isOn("Enabled"));
  EXPECT_TRUE(isOn("Enable Quick Settings"));
  EXPECT_EQ(value("Vertical Padding"), -13);
  EXPECT_FALSE(std::filesystem::exists(home.file(test::preferencesPath)));
  home.toggle("Square Icons");
  Json now = home.report()["preferences"];
  EXPECT_EQ(now["square"], Json(true));
  now.erase("square");
  EXPECT_EQ(now.sorted(), first.sorted());
}

TEST(Pane, TakesWholeNumbersWhereOnlyTheseWillDo) {
  PaneHome home({"--set", "rows=6.4"});
  EXPECT_EQ(count("Rows"), 6);
  home.count("Rows", 7);
  EXPECT_EQ(home.stored("rows").dump(), "7.0");
  home.slide("Top Inset", "40.5");
  EXPECT_NEAR(home.stored("topIconInset").get<double>(), 40.5, 1);
}

// A framework may use a cell again for another row of its class.
TEST(Pane, CountsWithinTheRangeOfTheRowThatACellIsUsedAgainFor) {
  PaneHome home({"--set", "rows=6", "--set", "dockIcons=9"});
  EXPECT_EQ(PaneHome::stepper("Rows").maximumValue(), 15);
  sim::preferences::shownCell("Rows").refreshCellContentsWithSpecifier(
      sim::preferences::shownCell("Dock Icons").specifier());
  EXPECT_EQ(PaneHome::stepper("Rows").maximumValue(), 10);
  EXPECT_EQ(count("Rows"), 9);
}

TEST(Pane, ShowsWhatThePanelHasChanged) {
  PaneHome home({"--set", "enabled=YES", "--set", "quick=YES", "--set", "horiIconPadding=5"});
  home.leave();
  home.step("swipe up");
  home.step("wait 1");
  home.step("increment \"Horizontal Padding\" 3");
  home.step("tap \"close\"");
  home.step("wait 1");
  home.step("settings");
  EXPECT_EQ(value("Horizontal Padding"), 8);
}

// Both are made anew each time, and what is left of the first ones is still laid out.
TEST(SettingsOfATablet, AreLeftAndComeBackFromThePanel) {
  test::Home home(
      {"--device", "iPad Pro (12.9-inch)", "--ios", "11.1", "--set", "enabled=YES", "--set", "quick=YES"});
  for (const char* step :
       {"settings", "swipe up", "home", "swipe up", "call openSettings", "swipe up", "wait 1"})
    home.step(step);
  EXPECT_EQ(home.report()["application"], "Settings");
}

}  // namespace
