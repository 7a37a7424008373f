// How many rows and columns a list has: the exported function that decides it, the stored counts behind it,
// and the answers of lists and of their classes.
#include <gtest/gtest.h>

#include "settings/store/configuration_manager.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using test::Home;
using test::homeOptions;
using tilo::ConfigurationManager;

const std::vector<std::string> customGrid{"enabled=YES", "icons=YES", "rows=6", "columns=3"};

int iconGridCalc(NSString key, bridge::Object list, int systemValue) {
  auto* function = reinterpret_cast<int (*)(id, id, int)>(test::exportedSymbol("iconGridCalc"));
  return function ? function(key.raw, list.raw, systemValue) : -1000;
}

bridge::Object classObject(const char* name) {
  return bridge::as<bridge::Object>(reinterpret_cast<id>(objc_getClass(name)));
}

TEST(IconGridCalc, AnswersOneLessThanTheStoredCount) {
  Home home(homeOptions("iPhone 7", customGrid));
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 5);
  EXPECT_EQ(iconGridCalc("columns"_ns, home.page(0), 4), 2);
}

TEST(IconGridCalc, TakesTheStoredCountWhateverTheSystemsIs) {
  Home home(homeOptions("iPhone 7", customGrid));
  for (int system : {-5, 0, 1, 6, 100}) EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), system), 5);
}

TEST(IconGridCalc, KeepsTheSystemsCountForTheDockAndFolders) {
  Home home(homeOptions("iPhone 7", customGrid));
  for (int system : {-3, 0, 4, 9}) {
    EXPECT_EQ(iconGridCalc("rows"_ns, home.dock(), system), system - 1);
    EXPECT_EQ(iconGridCalc("columns"_ns, home.dock(), system), system - 1);
    EXPECT_EQ(iconGridCalc("rows"_ns, home.folder(), system), system - 1);
    EXPECT_EQ(iconGridCalc("columns"_ns, home.folder(), system), system - 1);
  }
}

TEST(IconGridCalc, NeedsBothSwitches) {
  Home home(homeOptions("iPhone 7", customGrid));
  home.save("icons"_ns, NSNumber::numberWithBool(NO));
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 3);
  home.save("enabled"_ns, NSNumber::numberWithBool(NO));
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 3);
  home.save("icons"_ns, NSNumber::numberWithBool(YES));
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 3);
  home.save("enabled"_ns, NSNumber::numberWithBool(YES));
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 5);
}

TEST(IconGridCalc, TakesAnAbsentSwitchAsOff) {
  Home home(homeOptions("iPhone 7", customGrid));
  home.save("icons"_ns, bridge::Object{});
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 3);
  home.save("icons"_ns, NSNumber::numberWithInt(1));
  home.save("enabled"_ns, bridge::Object{});
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 3);
}

TEST(IconGridCalc, KeepsTheSystemsCountWhereNoneIsStored) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "icons=YES", "columns=3"}));
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 3);
  EXPECT_EQ(iconGridCalc("columns"_ns, home.page(0), 4), 2);
  home.save("columns"_ns, bridge::Object{});
  EXPECT_EQ(iconGridCalc("columns"_ns, home.page(0), 4), 3);
}

TEST(IconGridCalc, TakesEveryOtherKeyForColumns) {
  Home home(homeOptions("iPhone 7", customGrid));
  for (NSString key : {"Rows"_ns, "row"_ns, "index"_ns}) {
    EXPECT_EQ(iconGridCalc(key, home.page(0), 7), 6) << "nothing is stored under it";
    home.save(key, 9);
    EXPECT_EQ(iconGridCalc(key, home.page(0), 7), 2);
  }
}

TEST(IconGridCalc, TakesTheDefaultColumnsAsTheyStandForAStoredKeyOfAnotherName) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "icons=YES", "index=1"}));
  EXPECT_EQ(iconGridCalc("index"_ns, home.page(0), 7), 4);
}

TEST(IconGridCalc, ComparesTheKeysText) {
  Home home(homeOptions("iPhone 7", customGrid));
  NSString built = NSString::stringWithUTF8String("ro").stringByAppendingString("ws"_ns);
  EXPECT_EQ(iconGridCalc(built, home.page(0), 4), 5);
}

TEST(IconGridCalc, TakesAClassForNeitherDockNorFolder) {
  Home home(homeOptions("iPhone 7", customGrid));
  for (const char* name : {"SBIconListView", "SBFolderIconListView", "SBDockIconListView"})
    EXPECT_EQ(iconGridCalc("rows"_ns, classObject(name), 4), 5) << name;
  EXPECT_EQ(iconGridCalc("rows"_ns, {}, 4), 5);
}

int countRequests = 0;
int countedRows(ConfigurationManager self) {
  ++countRequests;
  return bridge::original<countedRows>(self);
}

TEST(IconGridCalc, AsksForTheStoredCountWhateverTheSwitchesSay) {
  Home home(homeOptions("iPhone 7", {"enabled=NO"}));
  test::standIn<ConfigurationManager, &ConfigurationManager::rows, countedRows>();
  EXPECT_EQ(iconGridCalc("rows"_ns, home.dock(), 4), 3);
  EXPECT_EQ(countRequests, 1);
  iconGridCalc("columns"_ns, home.page(0), 4);
  EXPECT_EQ(countRequests, 1);
}

TEST(IconGridCalc, KeepsTheSystemsCountWithoutAnySetting) {
  std::string empty = test::temporaryFile("empty.plist", "{}");
  Home home({"--device", "iPhone 7", "--prefs", empty});
  EXPECT_FALSE(ConfigurationManager::sharedManager().configuration());
  EXPECT_EQ(iconGridCalc("rows"_ns, home.page(0), 4), 3);
  EXPECT_EQ(home.page(0).iconRowsForCurrentOrientation(), 6);
  EXPECT_EQ(home.page(0).iconColumnsForCurrentOrientation(), 4);
}

TEST(StoredCounts, AreOneLessAndTheirDefaultsAsTheyStand) {
  Home home(homeOptions("iPhone 7", {"enabled=YES"}));
  ConfigurationManager manager = ConfigurationManager::sharedManager();
  EXPECT_EQ(manager.rows(), 6);
  EXPECT_EQ(manager.columns(), 4);
  home.save("rows"_ns, 5);
  home.save("columns"_ns, 7);
  EXPECT_EQ(manager.rows(), 4);
  EXPECT_EQ(manager.columns(), 6);
  home.save("rows"_ns, bridge::Object{});
  home.save("columns"_ns, bridge::Object{});
  EXPECT_EQ(manager.rows(), 6);
  EXPECT_EQ(manager.columns(), 4);
}

TEST(StoredCounts, KeepTheirDefaultsInAnEmptyDomain) {
  Home home({"--prefs", test::temporaryFile("empty.plist", "{}")});
  ConfigurationManager manager = ConfigurationManager::sharedManager();
  home.save("rows"_ns, 5);
  EXPECT_EQ(home.report()["preferences"]["rows"], 5);
  EXPECT_EQ(manager.rows(), 6);
  EXPECT_EQ(manager.columns(), 4);
}

TEST(StoredCounts, AreWholeNumbers) {
  Home home(homeOptions("iPhone 7", {"rows=5.9", "columns=-0.5"}));
  EXPECT_EQ(ConfigurationManager::sharedManager().rows(), 4);
  EXPECT_EQ(ConfigurationManager::sharedManager().columns(), -1);
  home.save("rows"_ns, "8"_ns);
  EXPECT_EQ(ConfigurationManager::sharedManager().rows(), 7);
}

TEST(StoredCounts, ThatAreNoNumbersAreAsGoodAsNone) {
  Home home(homeOptions("iPhone 7", {"columns=3"}));
  home.save("columns"_ns, "many"_ns);
  EXPECT_EQ(ConfigurationManager::sharedManager().columns(), 4);
}

TEST(StoredCounts, AreThirtyTwoBitsWide) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "icons=YES"}));
  home.save("rows"_ns, NSNumber::numberWithLongLong((1LL << 32) + 5));
  EXPECT_EQ(ConfigurationManager::sharedManager().rows(), 4);
  EXPECT_EQ(home.page(0).iconRowsForCurrentOrientation(), 5);
  // The largest and the smallest count turn into each other when one is taken away and added back.
  for (long long edge : {1LL << 31, -(1LL << 31), (1LL << 31) - 1}) {
    home.save("rows"_ns, NSNumber::numberWithLongLong(edge));
    EXPECT_EQ(static_cast<NSInteger>(home.page(0).iconRowsForCurrentOrientation()),
              static_cast<int32_t>(edge));
  }
}

// The three answers of a list and the two of its class, in the order rows, rows for spacing, columns.
std::vector<NSInteger> countsOf(SBIconListView list) {
  return {static_cast<NSInteger>(list.iconRowsForCurrentOrientation()),
          static_cast<NSInteger>(list.iconRowsForSpacingCalculation()),
          static_cast<NSInteger>(list.iconColumnsForCurrentOrientation())};
}

std::vector<NSInteger> classCounts(NSInteger orientation) {
  return {static_cast<NSInteger>(SBIconListView::iconRowsForInterfaceOrientation(orientation)),
          static_cast<NSInteger>(SBIconListView::iconColumnsForInterfaceOrientation(orientation))};
}

using Counts = std::vector<NSInteger>;

TEST(GridCounts, AreTheStoredOnesOnEveryPageAndInEveryOrientation) {
  Home home(homeOptions("iPad Air 2", customGrid));
  for (size_t i = 0; i < 2; ++i) EXPECT_EQ(countsOf(home.page(i)), (Counts{6, 6, 3}));
  for (NSInteger orientation : {1, 2, 3, 4}) EXPECT_EQ(classCounts(orientation), (Counts{6, 3}));
  home.step("rotate landscape");
  EXPECT_EQ(countsOf(home.page(0)), (Counts{6, 6, 3}));
}

TEST(GridCounts, AreTheSystemsWhileSwitchedOff) {
  Home home(homeOptions("iPad Air 2", customGrid));
  home.save("icons"_ns, NSNumber::numberWithBool(NO));
  EXPECT_EQ(countsOf(home.page(0)), (Counts{5, 5, 4}));
  EXPECT_EQ(classCounts(UIInterfaceOrientationPortrait), (Counts{5, 4}));
  EXPECT_EQ(classCounts(UIInterfaceOrientationLandscapeLeft), (Counts{4, 5}));
  EXPECT_EQ(classCounts(UIInterfaceOrientationLandscapeRight), (Counts{4, 5}));
  home.save("icons"_ns, NSNumber::numberWithBool(YES));
  home.save("enabled"_ns, NSNumber::numberWithBool(NO));
  EXPECT_EQ(countsOf(home.page(0)), (Counts{5, 5, 4}));
  EXPECT_EQ(classCounts(UIInterfaceOrientationLandscapeRight), (Counts{4, 5}));
  home.step("rotate landscape");
  EXPECT_EQ(countsOf(home.page(0)), (Counts{4, 4, 5}));
}

TEST(GridCounts, StandForThemselves) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "icons=YES", "columns=7"}));
  EXPECT_EQ(countsOf(home.page(0)), (Counts{6, 6, 7}));
  EXPECT_EQ(classCounts(UIInterfaceOrientationPortrait), (Counts{6, 7}));
  home.save("columns"_ns, bridge::Object{});
  home.save("rows"_ns, 2);
  EXPECT_EQ(countsOf(home.page(0)), (Counts{2, 2, 4}));
  EXPECT_EQ(classCounts(UIInterfaceOrientationPortrait), (Counts{2, 4}));
}

TEST(GridCounts, PassZeroAndLessOnAsTheyStand) {
  Home home(homeOptions("iPhone 7", customGrid));
  home.save("rows"_ns, 0);
  home.save("columns"_ns, -3);
  EXPECT_EQ(countsOf(home.page(0)), (Counts{0, 0, -3}));
  EXPECT_EQ(classCounts(UIInterfaceOrientationPortrait), (Counts{0, -3}));
  EXPECT_EQ(home.page(0).iconColumnsForCurrentOrientation(), static_cast<NSUInteger>(-3));
  home.save("rows"_ns, -1);
  EXPECT_EQ(countsOf(home.page(0)), (Counts{-1, -1, -3}));
}

TEST(GridCounts, OfThePlainListClassFollowTheSettingsToo) {
  Home home(homeOptions("iPhone 7", customGrid));
  auto list = bridge::make<SBIconListView, &UIView::initWithFrame>(CGRect{});
  EXPECT_EQ(countsOf(list.get()), (Counts{6, 6, 3}));
}

TEST(GridCounts, OfFoldersAndTheDockAreTheSystems) {
  Home home(homeOptions("iPad Air 2", customGrid));
  EXPECT_EQ(countsOf(home.folder()), (Counts{4, 4, 4}));
  EXPECT_EQ(countsOf(home.dock()), (Counts{1, 1, 6}));
}

// A class of folders without an answer of its own would get here with its own class as the receiver.
TEST(GridCounts, OfAClassAreTheStoredOnesForFoldersToo) {
  Home home(homeOptions("iPad Air 2", customGrid));
  using Columns = bridge::Descriptor<&SBIconListView::iconColumnsForInterfaceOrientation>;
  using Rows = bridge::Descriptor<&SBIconListView::iconRowsForInterfaceOrientation>;
  Class lists = test::metaclassOf(objc_getClass("SBIconListView"));
  id folders = classObject("SBFolderIconListView").raw;
  EXPECT_EQ(Columns::sendAs(lists, folders, UIInterfaceOrientationPortrait), 3u);
  EXPECT_EQ(Rows::sendAs(lists, folders, UIInterfaceOrientationPortrait), 6u);
}

TEST(GridCounts, OfTheClassOfPagesFollowTheSettings) {
  Home home(homeOptions("iPad Air 2", customGrid));
  Class pages = objc_getClass("SBRootIconListView");
  EXPECT_EQ(SBIconListView::iconRowsForInterfaceOrientation.on(pages, 1), 6u);
  EXPECT_EQ(SBIconListView::iconColumnsForInterfaceOrientation.on(pages, 3), 3u);
}

// SpringBoard's own answers, as seen by the stand-ins that give them.
std::vector<NSInteger> orientationsAsked;
int systemRequests = 0;
constexpr NSUInteger systemCount = (NSUInteger{1} << 32) + 5;

NSUInteger systemRows(SBIconListView) {
  ++systemRequests;
  return systemCount;
}
NSUInteger systemClassRows(Class, NSInteger orientation) {
  orientationsAsked.push_back(orientation);
  return systemCount;
}

TEST(GridCounts, AskTheSystemOnceAndTakeThirtyTwoBitsOfItsAnswer) {
  Home home(homeOptions("iPhone 7", {"enabled=NO"}), [](sim::Simulation&) {
    test::standIn<SBIconListView, &SBIconListView::iconRowsForCurrentOrientation, systemRows>();
    test::standIn<SBIconListView, &SBIconListView::iconRowsForInterfaceOrientation, systemClassRows>();
  });
  systemRequests = 0;
  EXPECT_EQ(home.page(0).iconRowsForCurrentOrientation(), 5u);
  EXPECT_EQ(systemRequests, 1);
  EXPECT_EQ(home.folder().iconRowsForCurrentOrientation(), systemCount);
  EXPECT_EQ(systemRequests, 2);
  orientationsAsked.clear();
  EXPECT_EQ(SBIconListView::iconRowsForInterfaceOrientation(UIInterfaceOrientationLandscapeLeft), 5u);
  EXPECT_EQ(orientationsAsked, (Counts{UIInterfaceOrientationLandscapeLeft}));
}

NSUInteger folderClassRows(NSInteger orientation) {
  return SBIconListView::iconRowsForInterfaceOrientation.on(objc_getClass("SBFolderIconListView"),
                                                            orientation);
}

TEST(FolderClass, HasThreeRowsWhateverTheSettings) {
  Home home(homeOptions("iPad Air 2", customGrid));
  for (NSInteger orientation : {0, 1, 2, 3, 4}) EXPECT_EQ(folderClassRows(orientation), 3u);
  home.save("enabled"_ns, NSNumber::numberWithBool(NO));
  for (NSInteger orientation : {0, 1, 2, 3, 4}) EXPECT_EQ(folderClassRows(orientation), 3u);
}

TEST(FolderClass, HasThreeRowsWhereTheSystemHasFour) {
  const std::vector<std::string> off = homeOptions("iPad Air 2", {"enabled=NO"});
  EXPECT_EQ(test::stockReport(off)["folder"]["classRows"], 4);
  Home home(off);
  EXPECT_EQ(home.report()["folder"]["classRows"], 3);
  EXPECT_EQ(home.report()["folder"]["rows"], 4);
  EXPECT_EQ(home.folder().iconRowsForCurrentOrientation(), 4u);
}

TEST(FolderClass, NeverAsksTheSystem) {
  Home home(homeOptions("iPad Air 2", {"enabled=NO"}), [](sim::Simulation&) {
    test::standIn<SBFolderIconListView, &SBIconListView::iconRowsForInterfaceOrientation, systemClassRows>();
  });
  EXPECT_EQ(folderClassRows(UIInterfaceOrientationPortrait), 3u);
  home.save("enabled"_ns, NSNumber::numberWithBool(YES));
  EXPECT_EQ(folderClassRows(UIInterfaceOrientationLandscapeLeft), 3u);
  EXPECT_TRUE(orientationsAsked.empty());
}

// Of columns the folder's class has no answer of its own.
TEST(FolderClass, HasTheColumnsOfTheListsThatItInheritsFrom) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "icons=YES", "rows=6", "columns=7"}));
  Class folders = objc_getClass("SBFolderIconListView");
  EXPECT_EQ(SBIconListView::iconColumnsForInterfaceOrientation.on(folders, 1), 7u);
}

}  // namespace
