// The four spacing values that lists answer: SpringBoard's own, the stored ones, or those of the selected
// layout, as they stand or stretched for the screen.
#include <gtest/gtest.h>

#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using test::Home;
using test::homeOptions;
using test::preset;
using test::withPresets;
using Json = sim::Json;

// Vertical and horizontal padding, side and top inset of a page.
using Spacing = std::vector<CGFloat>;

Spacing spacingOf(SBRootIconListView page) {
  return {page.verticalIconPadding(), page.horizontalIconPadding(), page.sideIconInset(),
          page.topIconInset()};
}

Spacing systemSpacing(const std::vector<std::string>& options) {
  Json page = test::stockReport(options)["pages"][0];
  return {page["verticalPadding"], page["horizontalPadding"], page["sideInset"], page["topInset"]};
}

void expectSpacing(Home& home, const Spacing& expected) {
  Spacing found = spacingOf(home.page(0));
  for (size_t i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(found[i], expected[i]) << "of value " << i;
}

const std::vector<std::string> storedValues{"enabled=YES", "vertIconPadding=5.5", "horiIconPadding=9",
                                            "sideIconInset=48", "topIconInset=33"};

std::vector<std::string> stored(const std::string& another) {
  std::vector<std::string> settings = storedValues;
  settings.push_back(another);
  return settings;
}

// How a width and a height of the 4-inch screen come out on the iPhone 7 with its own six rows of four.
constexpr double wide = 750. / 640 * 1.4, high = 1334. / 1136 * 1.4 * 5 / 6;

const Json asItStands = preset("As it stands", 1, 1.5, 2.5, 3.5, 4.5);
const Json scaled = preset("Scaled", 0, 10, 20, 30, 40);

TEST(Spacing, IsTheSystemsWhileTurnedOff) {
  auto options = homeOptions("iPhone 7", storedValues, withPresets({asItStands}));
  Spacing own = systemSpacing(options);
  EXPECT_NE(own, (Spacing{5.5, 9, 48, 33}));
  Home home(options);
  home.save("enabled"_ns, NSNumber::numberWithBool(NO));
  for (int selected : {-1, 0, 5}) {
    home.save("custom_preset"_ns, NSNumber::numberWithInt(selected));
    expectSpacing(home, own);
  }
  home.save("enabled"_ns, bridge::Object{});
  expectSpacing(home, own);
}

TEST(Spacing, IsTheSystemsWithoutAnySetting) {
  std::vector<std::string> options{"--prefs", test::temporaryFile("empty.plist", "{}")};
  Spacing own = systemSpacing(options);
  Home home(options);
  expectSpacing(home, own);
}

TEST(Spacing, IsTheStoredOneUnscaledWithoutASelectedLayout) {
  Home home(homeOptions("iPhone 7", stored("custom_preset=-1"), withPresets({scaled})));
  expectSpacing(home, {5.5, 9, 48, 33});
}

TEST(Spacing, IsTheStoredOneUnscaledOnATabletToo) {
  Home home(homeOptions("iPad Air", stored("custom_preset=-1"), {"--orientation", "landscape"}));
  expectSpacing(home, {5.5, 9, 48, 33});
}

TEST(Spacing, IsTheStoredOneForEveryNegativeSelection) {
  Home home(homeOptions("iPhone 7", stored("custom_preset=-4"), withPresets({asItStands})));
  for (double selected : {-4., -1., -1.9, -1000.}) {
    home.save("custom_preset"_ns, selected);
    expectSpacing(home, {5.5, 9, 48, 33});
  }
}

TEST(Spacing, IsOfSinglePrecision) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "custom_preset=-1", "vertIconPadding=0.1"},
                        withPresets({preset("Tenths", 1, 0.2, 0.3, 0.4, -0.7)})));
  EXPECT_EQ(home.page(0).verticalIconPadding(), static_cast<double>(0.1f));
  home.save("custom_preset"_ns, 0);
  tilo::RQGestureController::sharedInstance().updateConfigWithValue(0);
  EXPECT_EQ(spacingOf(home.page(0)), (Spacing{0.2f, 0.3f, 0.4f, -0.7f}));
}

TEST(Spacing, IsZeroForWhatIsNotStored) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "custom_preset=-1", "sideIconInset=12"}));
  expectSpacing(home, {0, 0, 12, 0});
}

TEST(Spacing, FollowsEverySavedValueAtOnce) {
  Home home(homeOptions("iPhone 7", stored("custom_preset=-1")));
  home.save("horiIconPadding"_ns, -6);
  home.save("topIconInset"_ns, 90.25);
  expectSpacing(home, {5.5, -6, 48, 90.25});
  home.save("sideIconInset"_ns, bridge::Object{});
  expectSpacing(home, {5.5, -6, 0, 90.25});
}

TEST(Spacing, IsTheFirstLayoutsForSelectionZero) {
  Home home(homeOptions("iPhone 7", stored("custom_preset=0"), withPresets({asItStands, scaled})));
  expectSpacing(home, {1.5, 2.5, 3.5, 4.5});
}

TEST(Spacing, IsTheFirstLayoutsWhileNoSelectionIsStored) {
  Home home(homeOptions("iPhone 7", storedValues, withPresets({asItStands, scaled})));
  expectSpacing(home, {1.5, 2.5, 3.5, 4.5});
}

TEST(Spacing, IsTheFirstLayoutsForASelectionThatRoundsTowardsZero) {
  Home home(homeOptions("iPhone 7", stored("custom_preset=-0.9"), withPresets({asItStands, scaled})));
  expectSpacing(home, {1.5, 2.5, 3.5, 4.5});
}

TEST(Spacing, IsTheSelectedLayouts) {
  Json other = preset("Other", 1, 7, 8, 9, 10);
  Home home(homeOptions("iPhone 7", stored("custom_preset=2"), withPresets({scaled, asItStands, other})));
  expectSpacing(home, {7, 8, 9, 10});
  home.save("custom_preset"_ns, 1);
  tilo::RQGestureController::sharedInstance().updateConfigWithValue(1);
  expectSpacing(home, {1.5, 2.5, 3.5, 4.5});
}

TEST(Spacing, IsTheCurrentLayoutsUntilAnotherIsMadeCurrent) {
  Home home(homeOptions("iPhone 7", stored("custom_preset=0"), withPresets({asItStands, scaled})));
  home.save("custom_preset"_ns, 1);
  expectSpacing(home, {1.5, 2.5, 3.5, 4.5});
}

TEST(Spacing, OfALayoutThatIsNotConfigurableIsStretchedOnAPhone) {
  Home home(homeOptions("iPhone 7", storedValues, withPresets({scaled})));
  expectSpacing(home, {10 * high, 20 * wide, 30 * wide, 40 * high});
}

TEST(Spacing, OfALayoutThatIsNotConfigurableIsStretchedForTheGridInForce) {
  Home home(
      homeOptions("iPhone 7", {"enabled=YES", "icons=YES", "rows=8", "columns=5"}, withPresets({scaled})));
  double higher = 1334. / 1136 * 1.4 * 5 / 8, wider = 750. / 640 * 1.4 * 4 / 5;
  expectSpacing(home, {10 * higher, 20 * wider, 30 * wider, 40 * higher});
}

TEST(Spacing, OfALayoutThatIsNotConfigurableIsStretchedOnATablet) {
  Home home(homeOptions("iPad Air", storedValues, withPresets({scaled})));
  double height = 2048. / 568;
  expectSpacing(home, {height * 10 + 20, 4.8 * 20 + 20, 4.8 * 30 + 20, height * 40 + 20});
}

TEST(Spacing, OfALayoutThatIsNotConfigurableStandsOnAFourInchPhone) {
  Home home(homeOptions("iPhone 5s", storedValues, withPresets({scaled})));
  expectSpacing(home, {10, 20, 30, 40});
}

TEST(Spacing, OfALayoutThatIsNotConfigurableStandsAtThreePixelsAPoint) {
  Home home(homeOptions("iPhone 8 Plus", storedValues, withPresets({scaled})));
  expectSpacing(home, {10, 20, 30, 40});
}

TEST(Spacing, OfAConfigurableLayoutStandsOnATablet) {
  Home home(homeOptions("iPad Air", storedValues, withPresets({asItStands})));
  expectSpacing(home, {1.5, 2.5, 3.5, 4.5});
}

TEST(Spacing, IsStretchedWhereTheFlagIsMissing) {
  Json without = scaled;
  without.erase("configurable");
  Home home(homeOptions("iPhone 7", storedValues, withPresets({without})));
  expectSpacing(home, {10 * high, 20 * wide, 30 * wide, 40 * high});
}

TEST(Spacing, TakesTheFlagAsABoolean) {
  std::vector<Json> records(3, scaled);
  records[0]["configurable"] = true;
  records[1]["configurable"] = false;
  records[2]["configurable"] = 2;
  Home home(homeOptions("iPhone 7", storedValues, withPresets(records)));
  auto controller = tilo::RQGestureController::sharedInstance();
  expectSpacing(home, {10, 20, 30, 40});
  controller.updateConfigWithValue(1);
  expectSpacing(home, {10 * high, 20 * wide, 30 * wide, 40 * high});
  controller.updateConfigWithValue(2);
  expectSpacing(home, {10, 20, 30, 40});
}

TEST(Spacing, IsZeroForWhatALayoutLacks) {
  Json partial = asItStands;
  partial["configuration"].erase("horizontal_padding");
  partial["configuration"].erase("top_inset");
  Home home(homeOptions("iPad Air", storedValues, withPresets({partial})));
  expectSpacing(home, {1.5, 0, 3.5, 0});
}

// On a tablet a stretched zero is no longer one.
TEST(Spacing, StretchesAZeroForWhatALayoutLacks) {
  Json partial = scaled;
  partial["configuration"].erase("vertical_padding");
  partial["configuration"].erase("side_inset");
  Home home(homeOptions("iPad Air", storedValues, withPresets({partial})));
  expectSpacing(home, {20, 4.8 * 20 + 20, 20, 2048. / 568 * 40 + 20});
}

TEST(Spacing, IsZeroForALayoutWithoutValues) {
  Json configurable{{"name", "Empty"}, {"value", 0}, {"configurable", 1}};
  Json bare{{"name", "Bare"}, {"value", 1}};
  Home home(homeOptions("iPad Air", storedValues, withPresets({configurable, bare})));
  expectSpacing(home, {0, 0, 0, 0});
  tilo::RQGestureController::sharedInstance().updateConfigWithValue(1);
  expectSpacing(home, {20, 20, 20, 20});
}

TEST(Spacing, IsAStretchedZeroWithoutAnyLayout) {
  Home home(homeOptions("iPad Air", storedValues));
  EXPECT_FALSE(tilo::RQGestureController::sharedInstance().currentPreset());
  expectSpacing(home, {20, 20, 20, 20});
}

TEST(Spacing, IsZeroOnAPhoneWithoutAnyLayout) {
  Home home(homeOptions("iPhone 7", stored("custom_preset=7"), withPresets({asItStands})));
  EXPECT_FALSE(tilo::RQGestureController::sharedInstance().currentPreset());
  expectSpacing(home, {0, 0, 0, 0});
}

// The first start turns the grid on and selects nothing.
TEST(Spacing, IsZeroOnAPhoneOfAFirstStart) {
  Home home({"--device", "iPhone 7"});
  expectSpacing(home, {0, 0, 0, 0});
}

// What has no rows stretches without end; a frame has room for so much, and for no number there is none.
TEST(Spacing, IsAsLargeAsAFrameCanSayWhereAStretchedLayoutHasNoRowsOrColumns) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "icons=YES"},
                        withPresets({preset("Stretched", 0, 1, -2, 0, 3)})));
  home.save("rows"_ns, 0);
  home.save("columns"_ns, 0);
  Json page = home.report()["pages"][0];
  EXPECT_EQ(page["verticalPadding"], 1e6);
  EXPECT_EQ(page["horizontalPadding"], -1e6);
  EXPECT_EQ(page["sideInset"], 0);
  EXPECT_EQ(page["topInset"], 1e6);
}

void expectSystemSpacing(Home& home, const Json& own) {
  Json report = home.report();
  for (const char* list : {"folder", "dock"})
    for (const char* key : {"verticalPadding", "horizontalPadding"})
      EXPECT_EQ(report[list][key], own[list][key]) << list << " " << key;
}

TEST(Spacing, OfFoldersAndTheDockIsTheSystems) {
  auto options = homeOptions("iPhone 7", stored("custom_preset=-1"), withPresets({asItStands, scaled}));
  Json own = test::stockReport(options);
  Home home(options);
  for (int selected : {-1, 0, 1, 9}) {
    home.save("custom_preset"_ns, NSNumber::numberWithInt(selected));
    tilo::RQGestureController::sharedInstance().updateConfigWithValue(selected);
    expectSystemSpacing(home, own);
  }
}

TEST(Spacing, OfThePlainListClassFollowsTheSettings) {
  Home home(homeOptions("iPhone 7", stored("custom_preset=-1")));
  auto list = bridge::make<SBIconListView, &UIView::initWithFrame>(CGRect{});
  EXPECT_EQ(list->verticalIconPadding(), 5.5);
  EXPECT_EQ(list->horizontalIconPadding(), 9);
}

}  // namespace
