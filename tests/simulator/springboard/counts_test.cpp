// Rows and columns as SpringBoard itself answers them.
#include <gtest/gtest.h>

#include "tests/support/home.hpp"

namespace {

using sim::Json;

NSUInteger classRows(Class list, NSInteger orientation) {
  return SBIconListView::iconRowsForInterfaceOrientation.on(list, orientation);
}
NSUInteger classColumns(Class list, NSInteger orientation) {
  return SBIconListView::iconColumnsForInterfaceOrientation.on(list, orientation);
}

struct Stock {
  const char* device;
  int rows, columns, landscapeRows, landscapeColumns;
};

class StockCounts : public testing::TestWithParam<Stock> {};

TEST_P(StockCounts, AreThoseOfTheDevice) {
  const Stock& stock = GetParam();
  test::Home home({"--stock", "--device", stock.device});
  auto expectPage = [&](int rows, int columns) {
    Json page = home.report()["pages"][0];
    EXPECT_EQ(page["rows"], rows);
    EXPECT_EQ(page["columns"], columns);
    EXPECT_EQ(page["rowsForSpacing"], rows);
  };
  expectPage(stock.rows, stock.columns);
  Class list = bridge::classNamed<SBIconListView>();
  for (NSInteger upright : {1, 2}) {
    EXPECT_EQ(classRows(list, upright), static_cast<NSUInteger>(stock.rows));
    EXPECT_EQ(classColumns(list, upright), static_cast<NSUInteger>(stock.columns));
  }
  for (NSInteger sideways : {3, 4}) {
    EXPECT_EQ(classRows(list, sideways), static_cast<NSUInteger>(stock.landscapeRows));
    EXPECT_EQ(classColumns(list, sideways), static_cast<NSUInteger>(stock.landscapeColumns));
  }
  home.step("rotate landscape");
  expectPage(stock.landscapeRows, stock.landscapeColumns);
}

INSTANTIATE_TEST_SUITE_P(Devices, StockCounts,
                         testing::Values(Stock{"iPhone 4s", 4, 4, 4, 4}, Stock{"iPhone 5", 5, 4, 5, 4},
                                         Stock{"iPhone 7", 6, 4, 6, 4}, Stock{"iPhone X", 6, 4, 6, 4},
                                         Stock{"iPhone 7 Plus", 6, 4, 4, 6}, Stock{"iPad Air 2", 5, 4, 4, 5},
                                         Stock{"iPad Pro (12.9-inch)", 5, 4, 4, 5}));

Json folder(const char* device, bool stock) {
  std::vector<std::string> options{"--device", device, "--report", "-"};
  if (stock) options.push_back("--stock");
  return Json::parse(test::runSimulator(options).output)["folder"];
}

TEST(StockFolder, HasThreeRowsAndColumnsOnAPhone) {
  Json found = folder("iPhone 7", true);
  EXPECT_EQ(found["rows"], 3);
  EXPECT_EQ(found["columns"], 3);
  EXPECT_EQ(found["classRows"], 3);
}

TEST(StockFolder, HasFourRowsAndColumnsOnATablet) {
  Json found = folder("iPad Air 2", true);
  EXPECT_EQ(found["rows"], 4);
  EXPECT_EQ(found["columns"], 4);
  EXPECT_EQ(found["classRows"], 4);
}

// The library replaces what the class answers; a folder's own count does not go through it.
TEST(StockFolder, KeepsItsOwnRowsWhenItsClassAnswersAnother) {
  Json found = folder("iPad Air 2", false);
  EXPECT_EQ(found["rows"], 4);
  EXPECT_EQ(found["classRows"], 3);
}

}  // namespace
