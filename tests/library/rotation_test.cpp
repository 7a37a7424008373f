// The icon controller: measuring the screen at the start, and the grid of tablets that turn.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "platform/springboard/icon_controller.hpp"
#include "platform/springboard/lock_screen.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using bridge::original;
using sim::Json;

double heightFactor() { return test::libraryVariable<double>("tilo::iPadAdjustFactorH"); }
double widthFactor() { return test::libraryVariable<double>("tilo::iPadAdjustFactorW"); }
void setPageCount(int count) { test::libraryVariable<int>("tilo::numOfPages") = count; }

void expectFactors(double height, double width, const std::string& where = "") {
  EXPECT_EQ(heightFactor(), height) << where;
  EXPECT_EQ(widthFactor(), width) << where;
}

void turnedFrom(NSInteger previous) {
  SBIconController::sharedInstance()._didRotateFromInterfaceOrientation(previous);
}

// SpringBoard's own methods before the library replaced them: what they were told and what they found.
struct System {
  static inline std::vector<std::string> calls;
  static inline double heightFactorThen = 0, widthThen = 0;

  static bridge::Strong<NSObject> init(SBIconController self) {
    calls.push_back("init");
    widthThen = test::libraryVariable<double>("tilo::screenWidth");
    return original<init>(self);
  }
  static void rotated(SBIconController self, NSInteger previous) {
    calls.push_back("rotated from " + std::to_string(previous));
    heightFactorThen = heightFactor();
    original<rotated>(self, previous);
  }
  static void appeared(SBIconController self, BOOL animated) {
    calls.push_back(animated ? "appeared animated" : "appeared");
    original<appeared>(self, animated);
  }

  static void watch(sim::Simulation&) {
    using bridge::replace;
    bridge::install(replace<SBIconController, &NSObject::init, init>());
    bridge::install(
        replace<SBIconController, &UIViewController::didRotateFromInterfaceOrientation, rotated>());
    bridge::install(replace<SBIconController, &UIViewController::viewDidAppear, appeared>());
  }
};

using Calls = std::vector<std::string>;

TEST(IconController, MeasuresTheScreenBeforeSpringBoardsOwnInit) {
  test::Home home({"--device", "iPad Air 2"}, System::watch);
  EXPECT_EQ(System::calls.at(0), "init");
  EXPECT_EQ(System::widthThen, 768);
  EXPECT_TRUE(SBIconController::sharedInstance());
}

TEST(IconController, StartsATabletWithTheFactorsOfItsScreen) {
  test::Home home({"--device", "iPad Air 2"});
  expectFactors(2048.0 / 568.0, 1536.0 / 320.0);
}

TEST(TurningPhone, ChangesNothingWhereTheHomeScreenDoesNotTurn) {
  test::Home home({"--device", "iPhone 7"});
  Json before = home.report();
  double height = heightFactor(), width = widthFactor();
  home.step("rotate landscape");
  Json after = home.report();
  expectFactors(height, width);
  before.erase("time");
  after.erase("time");
  EXPECT_EQ(after, before);
}

TEST(TurningPhone, KeepsFactorsAndMakesNoRelayoutOnAPlusPhone) {
  test::Home home({"--device", "iPhone 7 Plus", "--set", "preset=0"}, System::watch);
  setPageCount(3);
  double height = heightFactor(), width = widthFactor();
  System::calls.clear();
  home.step("rotate landscape");
  home.step("rotate portrait");
  home.step("wait 1");
  EXPECT_EQ(System::calls, (Calls{"rotated from 1", "rotated from 3"}));
  expectFactors(height, width);
  EXPECT_EQ(home.report()["relayouts"], Json::array());
}

TEST(TurningPhone, ShowsWhatSpringBoardShowsOnAPlusPhone) {
  auto turned = [](std::vector<std::string> options) {
    options.insert(options.end(), {"--device", "iPhone 7 Plus", "--script", "-", "--report", "-"});
    return Json::parse(test::runSimulator(options, "rotate landscape\nwait 1\n").output);
  };
  Json own = turned({"--set", "enabled=NO"}), stock = turned({"--stock"});
  EXPECT_EQ(own["pages"], stock["pages"]);
}

TEST(TurningTablet, ScalesByTheOtherSideInLandscape) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0"});
  home.step("rotate landscape");
  expectFactors(1536.0 / 688.0, 2048.0 / 320.0);
}

TEST(TurningTablet, ScalesAsBeforeBackInPortrait) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0"});
  home.step("rotate landscape");
  home.step("rotate portrait");
  expectFactors(2048.0 / 568.0, 1536.0 / 320.0);
  EXPECT_EQ(widthFactor(), 4.8);
}

TEST(TurningTablet, ScalesTheLargestTabletByItsOwnSize) {
  test::Home home({"--device", "iPad Pro (12.9-inch)", "--set", "preset=0"});
  expectFactors(2732.0 / 568.0, 2048.0 / 320.0);
  home.step("rotate landscape");
  expectFactors(2048.0 / 688.0, 2732.0 / 320.0);
  home.step("rotate portrait");
  expectFactors(2732.0 / 568.0, 2048.0 / 320.0);
}

// The sides are those of the start: the long one is the width then.
TEST(TurningTablet, GoesOnFromTheScreenThatWasMeasuredInLandscape) {
  test::Home home({"--device", "iPad Air 2", "--orientation", "landscape", "--set", "preset=0"});
  expectFactors(1536.0 / 568.0, 2048.0 / 320.0);
  home.step("rotate portrait");
  expectFactors(1536.0 / 568.0, 2048.0 / 320.0);
  home.step("rotate landscape");
  expectFactors(2048.0 / 688.0, 1536.0 / 320.0);
}

TEST(TurningTablet, KeepsTheHorizontalFactorForFourPresets) {
  test::Home home({"--device", "iPad Air 2"});
  for (int preset : {-2, 1, 8, 9}) {
    home.save("preset"_ns, preset);
    home.step("rotate landscape");
    expectFactors(1536.0 / 688.0, 4.8, std::to_string(preset));
    home.step("rotate portrait");
    expectFactors(2048.0 / 568.0, 4.8, std::to_string(preset));
  }
}

TEST(TurningTablet, RecomputesTheHorizontalFactorForAllOtherPresets) {
  test::Home home({"--device", "iPad Air 2"});
  for (int preset : {-5, -4, -3, -1, 0, 2, 3, 4, 5, 6, 7, 10, 11, 98}) {
    home.save("preset"_ns, preset);
    home.step("rotate landscape");
    expectFactors(1536.0 / 688.0, 6.4, std::to_string(preset));
    home.step("rotate portrait");
    expectFactors(2048.0 / 568.0, 4.8, std::to_string(preset));
  }
}

TEST(TurningTablet, KeepsWhateverTheHorizontalFactorWas) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0"});
  home.step("rotate landscape");
  home.save("preset"_ns, 8);
  turnedFrom(1);
  expectFactors(1536.0 / 688.0, 6.4);
}

TEST(TurningTablet, TakesAnAbsentPresetForZero) {
  test::Home home({"--device", "iPad Air 2", "--set", "enabled=YES"});
  home.step("rotate landscape");
  expectFactors(1536.0 / 688.0, 6.4);
}

TEST(TurningTablet, TakesThePresetAsAWholeNumber) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=8.75"});
  home.step("rotate landscape");
  expectFactors(1536.0 / 688.0, 4.8);
}

TEST(TurningTablet, ScalesForPortraitFromEveryOtherOrientation) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0"});
  for (NSInteger previous : {2, 3, 4, 0}) {
    turnedFrom(1);
    expectFactors(1536.0 / 688.0, 6.4);
    turnedFrom(previous);
    expectFactors(2048.0 / 568.0, 4.8, std::to_string(previous));
  }
}

TEST(TurningTablet, LetsSpringBoardTurnFirst) {
  test::Home home({"--device", "iPad Air 2"}, System::watch);
  System::calls.clear();
  home.step("rotate landscape");
  EXPECT_EQ(System::calls, Calls{"rotated from 1"});
  EXPECT_EQ(System::heightFactorThen, 2048.0 / 568.0);
  home.step("rotate portrait");
  EXPECT_EQ(System::calls, (Calls{"rotated from 1", "rotated from 3"}));
  EXPECT_EQ(System::heightFactorThen, 1536.0 / 688.0);
}

std::vector<double> factorsThen;
void turnsItself(SBIconController self, NSInteger previous) {
  factorsThen.push_back(heightFactor());
  original<turnsItself>(self, previous);
}

// The message that every known system sends.
TEST(TurningTablet, LetsSpringBoardsOwnMessageTurnFirst) {
  test::Home home({"--device", "iPad Air 2"}, [](sim::Simulation&) {
    test::standIn<SBIconController, &SBIconController::_didRotateFromInterfaceOrientation, turnsItself>();
  });
  home.step("rotate landscape");
  home.step("rotate portrait");
  EXPECT_EQ(factorsThen, (std::vector<double>{2048.0 / 568.0, 1536.0 / 688.0}));
}

TEST(TurningTablet, LaysOutEveryPageWhenItHasTurned) {
  test::Home home({"--device", "iPad Air 2", "--pages", "2"});
  setPageCount(2);
  home.step("wait 1");
  home.step("rotate landscape");
  home.step("rotate portrait");
  Json calls = Json::array();
  for (double at : {1.4, 1.8})
    for (int page : {0, 1})
      calls.push_back({{"page", page}, {"duration", 0.6}, {"call", "domino"}, {"at", at}});
  EXPECT_EQ(home.report()["relayouts"], calls);
}

TEST(TurningTablet, MakesNoRelayoutWhereItDoesNotTurn) {
  test::Home home({"--device", "iPad Air 2"});
  home.step("rotate portrait");
  EXPECT_EQ(home.report()["relayouts"], Json::array());
}

TEST(LockedTablet, KeepsItsFactorsAndMakesNoRelayout) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0"});
  home.step("lock");
  home.step("rotate landscape");
  expectFactors(2048.0 / 568.0, 4.8);
  home.step("rotate portrait");
  home.step("rotate landscape");
  home.step("unlock");
  home.step("wait 1");
  expectFactors(2048.0 / 568.0, 4.8);
  EXPECT_EQ(home.report()["relayouts"], Json::array());
}

TEST(LockedTablet, KeepsTheLandscapeFactorsOfTheUnlockedOne) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0"});
  home.step("rotate landscape");
  home.step("lock");
  home.step("rotate portrait");
  expectFactors(1536.0 / 688.0, 6.4);
  home.step("unlock");
  expectFactors(1536.0 / 688.0, 6.4);
  home.step("rotate landscape");
  home.step("rotate portrait");
  expectFactors(2048.0 / 568.0, 4.8);
}

int timesAsked = 0;
BOOL visibleAtFirst(SBLockScreenManager) { return ++timesAsked == 1; }

TEST(LockedTablet, IsAskedAgainBeforeThePortraitRule) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0"});
  bridge::install(
      bridge::replace<SBLockScreenManager, &SBLockScreenManager::isLockScreenVisible, visibleAtFirst>());
  test::libraryVariable<double>("tilo::iPadAdjustFactorH") = 1;
  turnedFrom(1);
  EXPECT_EQ(timesAsked, 2);
  expectFactors(2048.0 / 568.0, 4.8);
}

class LockedTabletOn : public testing::TestWithParam<const char*> {};

// Up to system 9 the lock screen's controller tells whether it is visible, afterwards its manager.
TEST_P(LockedTabletOn, KeepsItsFactorsUntilItIsUnlocked) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0", "--ios", GetParam()});
  home.step("lock");
  home.step("rotate landscape");
  expectFactors(2048.0 / 568.0, 4.8);
  home.step("rotate portrait");
  home.step("unlock");
  home.step("rotate landscape");
  expectFactors(1536.0 / 688.0, 6.4);
}

INSTANTIATE_TEST_SUITE_P(Systems, LockedTabletOn,
                         testing::Values("9.2", "9.3.5", "10.1", "10.3.3", "11.1", "12.1"));

int wronglyAsked = 0;
BOOL tellsNothing(SBLockScreenManager self, SEL selector) {
  return sel_isEqual(selector, bridge::selector<"isLockScreenVisible">())
             ? NO
             : original<tellsNothing>(self, selector);
}
BOOL countQuestion(SBLockScreenManager) { return ++wronglyAsked != 0; }

TEST(LockedTablet, CountsAsUnlockedWhereNobodyAnswers) {
  test::Home home({"--device", "iPad Air 2", "--set", "preset=0"}, [](sim::Simulation&) {
    using bridge::replace;
    using Manager = SBLockScreenManager;
    bridge::install(replace<Manager, &NSObject::respondsToSelector, tellsNothing>());
    bridge::install(replace<Manager, &Manager::isLockScreenVisible, countQuestion>());
  });
  home.step("lock");
  home.step("rotate landscape");
  expectFactors(1536.0 / 688.0, 6.4);
  EXPECT_EQ(wronglyAsked, 0);
}

// A tablet that shows a named layout which is made for the 4-inch screen.
std::vector<std::string> withNamedLayout(const std::string& preset) {
  Json layouts = Json::array({test::preset("Spoons", 0, -2.5, 1.25, 3, 4.5)});
  return {"--device",  "iPad Air 2",
          "--set",     "enabled=YES",
          "--set",     "custom_preset=0",
          "--set",     "preset=" + preset,
          "--presets", test::temporaryFile("presets.json", test::presetsDocument(layouts))};
}

// The spacing of a named layout that is made for the 4-inch screen.
Json spacing(double vertical, double horizontal, double side, double top) {
  return {{"verticalPadding", vertical},
          {"horizontalPadding", horizontal},
          {"sideInset", side},
          {"topInset", top}};
}

void expectSpacing(const Json& page, const Json& expected) {
  for (auto& [key, value] : expected.items())
    EXPECT_NEAR(page[key].get<double>(), value.get<double>(), 1e-9) << key;
}

TEST(TurningTablet, ShowsANamedLayoutScaledForTheOrientation) {
  test::Home home(withNamedLayout("0"));
  setPageCount(3);
  double up = 2048.0 / 568.0, across = 1536.0 / 320.0;
  expectSpacing(home.report()["pages"][0],
                spacing(up * -2.5 + 20, across * 1.25 + 20, across * 3 + 20, up * 4.5 + 20));
  home.step("rotate landscape");
  home.step("wait 0.6");
  up = 1536.0 / 688.0, across = 2048.0 / 320.0;
  double side = across * 3 + 20, top = up * 4.5 + 20, pitch = 76 + across * 1.25 + 20;
  for (auto& page : home.report()["pages"]) {
    expectSpacing(page, spacing(up * -2.5 + 20, across * 1.25 + 20, side, top));
    EXPECT_NEAR(page["icons"][0]["frame"][0].get<double>(), side, 1e-9);
    EXPECT_NEAR(page["icons"][0]["frame"][1].get<double>(), top, 1e-9);
    EXPECT_NEAR(page["icons"][4]["frame"][0].get<double>(), side + 4 * pitch, 1e-9);
  }
}

TEST(TurningTablet, KeepsANamedLayoutsWidthsForTheFourPresets) {
  test::Home home(withNamedLayout("9"));
  home.step("rotate landscape");
  double up = 1536.0 / 688.0, across = 1536.0 / 320.0;
  expectSpacing(home.report()["pages"][0],
                spacing(up * -2.5 + 20, across * 1.25 + 20, across * 3 + 20, up * 4.5 + 20));
}

TEST(Appearing, IsLeftToSpringBoard) {
  test::Home home({}, System::watch);
  System::calls.clear();
  SBIconController::sharedInstance().viewDidAppear(YES);
  SBIconController::sharedInstance().viewDidAppear(NO);
  EXPECT_EQ(System::calls, (Calls{"appeared animated", "appeared"}));
}

TEST(Appearing, ChangesNothingWhateverSetupWasShown) {
  Json first;
  for (std::string shown : {"", "showed-setup=YES", "showed-setup=NO", "showed-setup=2"}) {
    std::vector<std::string> options{"--set", "enabled=YES", "--script", "-", "--report", "-"};
    if (!shown.empty()) options.insert(options.end(), {"--set", shown});
    Json report = Json::parse(test::runSimulator(options, "wait 5\n").output);
    EXPECT_EQ(report["preferences"].contains("showed-setup"), !shown.empty());
    report["preferences"].erase("showed-setup");
    report.erase("console");  // shows the preferences as they were
    if (first.isNull()) first = report;
    EXPECT_EQ(report, first) << shown;
  }
}

TEST(Appearing, StoresNothing) {
  test::Home home;
  std::string before = home.contents(test::preferencesPath);
  SBIconController::sharedInstance().viewDidAppear(NO);
  home.step("wait 5");
  EXPECT_EQ(home.contents(test::preferencesPath), before);
  EXPECT_FALSE(home.report()["preferences"].contains("showed-setup"));
}

}  // namespace
