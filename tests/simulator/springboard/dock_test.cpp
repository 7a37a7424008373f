// The dock is one row of as many icons as it says to have in a row.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::original;
using sim::Json;

NSUInteger inRow = 0, rows = 0;

NSUInteger answerInRow(SBDockIconListView) { return inRow; }
NSUInteger answerRows(SBIconListView) { return rows; }
NSUInteger answerMostIcons(Class) { return rows; }
NSUInteger answerVisibleRows(Class, NSInteger) { return rows; }
NSUInteger answerClassRows(Class, NSInteger) { return rows; }

void layOut(SBDockIconListView dock) {
  dock.setIconsNeedLayout();
  dock.layoutIconsIfNeeded_domino.ifAnswered(0, NO);
}

std::vector<double> along(const Json& report, size_t axis) {
  std::vector<double> places;
  for (auto& icon : report["dock"]["icons"]) places.push_back(icon["frame"][axis]);
  return places;
}

// `count` places of 60 points with equal gaps between them and to the ends.
std::vector<double> spread(double length, double count, size_t icons) {
  double gap = (length - count * 60) / (count + 1);
  std::vector<double> places;
  for (size_t i = 0; i < icons; ++i) places.push_back(gap + static_cast<double>(i) * (60 + gap));
  return places;
}

void expectNear(const std::vector<double>& found, const std::vector<double>& expected) {
  ASSERT_EQ(found.size(), expected.size());
  for (size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], expected[i], 1e-9) << i;
}

TEST(StockDock, SpreadsItsIconsOverTheScreen) {
  test::Home home({"--stock"});
  Json report = home.report();
  EXPECT_EQ(report["dock"]["iconsInRow"], 4);
  expectNear(along(report, 0), spread(375, 4, 4));
  for (double y : along(report, 1)) EXPECT_EQ(y, along(report, 1)[0]);
}

TEST(StockDock, SpreadsThemForAsManyAsItSaysToHaveInARow) {
  test::Home home({"--stock"});
  bridge::install(bridge::replace<SBDockIconListView, &SBDockIconListView::iconsInRowForSpacingCalculation,
                                  answerInRow>());
  for (NSUInteger count : {5u, 4u, 3u}) {
    inRow = count;
    layOut(home.dock());
    expectNear(along(home.report(), 0), spread(375, static_cast<double>(count), 4));
  }
}

TEST(StockDock, IsOneRowWhateverItsRowCount) {
  test::Home home({"--stock"});
  Json before = home.report();
  rows = 3;
  using Dock = SBDockIconListView;
  using bridge::replace;
  bridge::install(replace<Dock, &SBIconListView::iconRowsForCurrentOrientation, answerRows>());
  bridge::install(replace<Dock, &Dock::maxIcons, answerMostIcons>());
  bridge::install(replace<Dock, &Dock::maxVisibleIconRowsInterfaceOrientation, answerVisibleRows>());
  bridge::install(replace<Dock, &SBIconListView::iconRowsForInterfaceOrientation, answerClassRows>());
  layOut(home.dock());
  Json after = home.report();
  EXPECT_EQ(after["dock"]["rows"], 3);
  EXPECT_EQ(after["dock"]["visibleRows"], 3);
  EXPECT_EQ(after["dock"]["maxIcons"], 3);
  EXPECT_EQ(after["dock"]["icons"], before["dock"]["icons"]);
}

TEST(StockDock, StandsAtTheRightOfAPlusPhoneHeldSideways) {
  test::Home home({"--stock", "--device", "iPhone 7 Plus"});
  expectNear(along(home.report(), 0), spread(414, 4, 4));
  home.step("rotate landscape");
  Json report = home.report();
  std::vector<double> x = along(report, 0), y = along(report, 1);
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(x[i], x[0]);
    if (i > 0) {
      EXPECT_NEAR(y[i] - y[i - 1], y[1] - y[0], 1e-9);
      EXPECT_GT(y[i] - y[i - 1], 60);
    }
  }
  home.step("rotate portrait");
  expectNear(along(home.report(), 0), spread(414, 4, 4));
}

struct Most {
  const char *device, *version;
  int icons;
};

class StockDockOf : public testing::TestWithParam<Most> {};

TEST_P(StockDockOf, HoldsAsManyIconsAsTheDevicesDoes) {
  test::Home home({"--stock", "--device", GetParam().device, "--ios", GetParam().version});
  EXPECT_EQ(home.report()["dock"]["maxIcons"], GetParam().icons);
}

INSTANTIATE_TEST_SUITE_P(Devices, StockDockOf,
                         testing::Values(Most{"iPhone 5s", "9.3", 4}, Most{"iPhone X", "12.1", 4},
                                         Most{"iPad Air 2", "10.3.3", 6}, Most{"iPad Air 2", "11.0", 13},
                                         Most{"iPad Pro (12.9-inch)", "10.0", 6},
                                         Most{"iPad Pro (12.9-inch)", "12.1", 15}));

}  // namespace
