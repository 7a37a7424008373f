// Every title of the page in Settings, changed by touch, and what comes of it on the home screen: at once
// where its footer says so, else when SpringBoard has started anew.
#include <cmath>

#include "simulator/device/temporary_root.hpp"
#include "tests/preferences/pane_home.hpp"

namespace {

using sim::Json;
using test::PaneHome;

// Values of somebody who has used the library for a while, but for these.
std::vector<std::string> with(const std::vector<std::string>& others) {
  std::vector<std::string> options;
  for (const char* setting :
       {"enabled=YES", "icons=YES", "rows=5", "columns=4", "custom_preset=-1", "labels=YES", "page=YES",
        "quick=YES", "horiIconPadding=5", "vertIconPadding=5", "sideIconInset=20", "topIconInset=30"})
    options.insert(options.end(), {"--set", setting});
  options.insert(options.end(), others.begin(), others.end());
  return options;
}

// The page on a device that is kept, and the same device after a respring.
class Resprung {
 public:
  explicit Resprung(const std::vector<std::string>& options = {}) : home(rooted(with(options))) {}

  Json report() {
    const test::Run ended = test::runSimulator({"--root", root.path().string(), "--report", "-"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    return Json::parse(ended.output);
  }

 private:
  std::vector<std::string> rooted(std::vector<std::string> options) {
    options.insert(options.begin(), {"--root", root.path().string()});
    return options;
  }

  sim::TemporaryRoot root;

 public:
  PaneHome home;
};

std::string wide() {
  return test::temporaryFile("wide.json",
                             test::presetsDocument(Json::array({test::preset("Wide", 1, 11, 12, 13, 14)})));
}

double left(const Json& report, int icon) {
  return report["pages"][0]["icons"][icon]["frame"][0].get<double>();
}
double top(const Json& report, int icon) {
  return report["pages"][0]["icons"][icon]["frame"][1].get<double>();
}

TEST(PaneTitle, EnabledTurnsTheGridOff) {
  PaneHome home(with({}));
  home.toggle("Enabled");
  EXPECT_EQ(home.stored("enabled"), Json(false));
  home.leave();
  EXPECT_EQ(home.report()["pages"][0]["rows"], 6);
}

TEST(PaneTitle, CustomRowsAndColumnsBringsThoseBack) {
  PaneHome home(with({"--set", "icons=NO", "--set", "columns=3"}));
  const double before = top(home.report(), 3);
  home.toggle("Custom Rows and Columns");
  home.leave();
  EXPECT_EQ(home.report()["pages"][0]["rows"], 5);
  EXPECT_GT(top(home.report(), 3), before);  // the fourth icon begins a row
}

TEST(PaneTitle, RowsIsHowManyAPageHas) {
  PaneHome home(with({}));
  home.count("Rows", 7);
  EXPECT_EQ(home.stored("rows").dump(), "7.0");
  home.leave();
  EXPECT_EQ(home.report()["pages"][0]["rows"], 7);
}

TEST(PaneTitle, ColumnsMovesIcons) {
  PaneHome home(with({}));
  const double before = top(home.report(), 3);
  home.count("Columns", 3);
  EXPECT_EQ(home.stored("columns").dump(), "3.0");
  home.leave();
  EXPECT_EQ(home.report()["pages"][0]["columns"], 3);
  EXPECT_GT(top(home.report(), 3), before);
}

TEST(PaneTitle, LayoutIsASavedOneAfterARespring) {
  Resprung device({"--presets", wide()});
  device.home.choose("Layout", "Wide");
  EXPECT_EQ(device.home.stored("custom_preset").dump(), "0");
  EXPECT_EQ(device.report()["pages"][0]["horizontalPadding"], 12.0);
}

TEST(PaneTitle, LayoutIsCustomAtOnce) {
  PaneHome home(with({"--presets", wide(), "--set", "custom_preset=0"}));
  EXPECT_EQ(home.report()["pages"][0]["sideInset"], 13.0);
  home.choose("Layout", "Custom");
  EXPECT_EQ(home.stored("custom_preset").dump(), "-1");
  const double before = left(home.report(), 0);
  home.leave();
  EXPECT_GT(std::abs(left(home.report(), 0) - before), 5);
}

struct Spacing {
  const char *title, *key, *reported;
};

class PaneSpacing : public testing::Test {
 protected:
  static void expectMoves(const char* title, const char* key, const char* value, int icon, bool across) {
    PaneHome home(with({}));
    const auto place = [&] { return across ? left(home.report(), icon) : top(home.report(), icon); };
    const double before = place();
    home.slide(title, value);
    EXPECT_EQ(home.stored(key), Json(std::stod(value)));
    EXPECT_EQ(place(), before);  // while Settings are in front
    home.leave();
    EXPECT_GT(place(), before);
  }
};

TEST_F(PaneSpacing, HorizontalPaddingMovesColumnsApart) {
  expectMoves("Horizontal Padding", "horiIconPadding", "10", 1, true);
}
TEST_F(PaneSpacing, VerticalPaddingMovesRowsApart) {
  expectMoves("Vertical Padding", "vertIconPadding", "10", 4, false);
}
TEST_F(PaneSpacing, SideInsetMovesTheFirstColumn) {
  expectMoves("Side Inset", "sideIconInset", "40", 0, true);
}
TEST_F(PaneSpacing, TopInsetMovesTheFirstRow) { expectMoves("Top Inset", "topIconInset", "60", 0, false); }

TEST(PaneTitle, ShowIconLabelsHidesThemAfterARespring) {
  Resprung device;
  device.home.toggle("Show Icon Labels");
  EXPECT_EQ(device.report()["pages"][0]["icons"][0]["label"]["visible"], Json(false));
}

TEST(PaneTitle, ShowPageDotsHidesThemAfterARespring) {
  Resprung device;
  device.home.toggle("Show Page Dots");
  EXPECT_EQ(device.report()["pageDots"]["drawn"], 0);
}

TEST(PaneTitle, SquareIconsAreSquareAfterARespring) {
  Resprung device;
  device.home.toggle("Square Icons");
  EXPECT_EQ(device.report()["pages"][0]["icons"][0]["square"], Json(true));
}

TEST(PaneTitle, HideDockHidesItAfterARespring) {
  Resprung device;
  device.home.toggle("Hide Dock");
  EXPECT_EQ(device.report()["dock"]["height"], 0.0);
}

TEST(PaneTitle, CustomNumberOfDockIconsIsInForceAfterARespring) {
  Resprung device({"--set", "dockIcons=6"});
  device.home.toggle("Custom Number of Icons");
  EXPECT_EQ(device.report()["dock"]["maxIcons"], 6);
}

TEST(PaneTitle, DockIconsIsThatNumberAfterARespring) {
  Resprung device({"--set", "dockIconsEnabled=YES"});
  device.home.count("Dock Icons", 5);
  EXPECT_EQ(device.home.stored("dockIcons").dump(), "5.0");
  EXPECT_EQ(device.report()["dock"]["icons"].size(), 5u);
}

bool opensPanel(PaneHome& home, const char* gesture) {
  home.leave();
  home.step(gesture);
  home.step("wait 1");
  return !home.report()["panel"].isNull();
}

TEST(PaneTitle, EnableQuickSettingsKeepsThePanelAway) {
  PaneHome home(with({}));
  home.toggle("Enable Quick Settings");
  EXPECT_FALSE(opensPanel(home, "swipe up"));
  home.step("settings");
  home.toggle("Enable Quick Settings");
  EXPECT_TRUE(opensPanel(home, "swipe up"));
}

TEST(PaneTitle, UseTwoFingerTapInsteadExchangesTheGestures) {
  PaneHome home(with({}));
  home.toggle("Use Two Finger Tap Instead");
  EXPECT_FALSE(opensPanel(home, "swipe up"));
  EXPECT_TRUE(opensPanel(home, "two-finger-tap"));
}

TEST(PaneTitle, OpenWithForceTouchFeelsAFirmPress) {
  PaneHome home(with({}));
  home.leave();
  EXPECT_FALSE(opensPanel(home, "press 4"));
  home.step("settings");
  home.toggle("Open With Force Touch");
  EXPECT_TRUE(opensPanel(home, "press 4"));
}

TEST(PaneTitle, QuickSettingsDarkModeIsThePanelsNextLook) {
  PaneHome home(with({}));
  home.toggle("Quick Settings Dark Mode");
  ASSERT_TRUE(opensPanel(home, "swipe up"));
  EXPECT_EQ(home.report()["panel"]["dark"], Json(true));
}

TEST(PaneTitle, QuickSettingsBackgroundColorIsThePanelsNextOne) {
  PaneHome home(with({}));
  home.choose("Panel Color", "Red");
  EXPECT_EQ(home.stored("qsBackgroundColor").dump(), "6");
  ASSERT_TRUE(opensPanel(home, "swipe up"));
  EXPECT_EQ(home.report()["panel"]["background"], (Json::array({249, 84, 115})));
}

}  // namespace
