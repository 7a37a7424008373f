// How many icons go on each page when SpringBoard starts.
#include <gtest/gtest.h>

#include <set>

#include "tests/support/home.hpp"

namespace {

using sim::Json;
using Sizes = std::vector<size_t>;

Json reportWith(std::vector<std::string> options) {
  options.insert(options.end(), {"--report", "-"});
  return Json::parse(test::runSimulator(options).output);
}

Sizes sizes(const Json& report) {
  Sizes found;
  for (auto& page : report["pages"]) found.push_back(page["icons"].size());
  return found;
}

Sizes pageSizes(const std::vector<std::string>& options) { return sizes(reportWith(options)); }

TEST(PageFilling, MakesThreeFullPagesUnlessToldOtherwise) {
  EXPECT_EQ(pageSizes({"--stock", "--device", "iPhone 7"}), (Sizes{24, 24, 24}));
  EXPECT_EQ(pageSizes({"--stock", "--device", "iPhone 5"}), (Sizes{20, 20, 20}));
  EXPECT_EQ(pageSizes({"--stock", "--device", "iPad Air 2", "--orientation", "landscape"}),
            (Sizes{20, 20, 20}));
}

TEST(PageFilling, MakesAsManyFullPagesAsAreWanted) {
  EXPECT_EQ(pageSizes({"--stock", "--pages", "1"}), (Sizes{24}));
  EXPECT_EQ(pageSizes({"--stock", "--pages", "15"}), Sizes(15, 24));
}

TEST(PageFilling, PutsIconsOnPagesInOrder) {
  EXPECT_EQ(pageSizes({"--stock", "--icons", "1"}), (Sizes{1}));
  EXPECT_EQ(pageSizes({"--stock", "--icons", "24"}), (Sizes{24}));
  EXPECT_EQ(pageSizes({"--stock", "--icons", "61"}), (Sizes{24, 24, 13}));
}

TEST(PageFilling, GoesOnBeyondTheWantedPagesWithMoreIcons) {
  EXPECT_EQ(pageSizes({"--stock", "--pages", "2", "--icons", "60"}), (Sizes{24, 24, 12}));
}

TEST(PageFilling, LeavesWantedPagesEmptyWithFewerIcons) {
  EXPECT_EQ(pageSizes({"--stock", "--pages", "3", "--icons", "30"}), (Sizes{24, 6, 0}));
}

TEST(PageFilling, GivesEveryIconAPlaceAndANameOfItsOwn) {
  Json report = reportWith({"--stock", "--icons", "50"});
  std::set<std::string> names;
  for (auto& page : report["pages"])
    for (auto& icon : page["icons"]) names.insert(icon["name"].get<std::string>());
  EXPECT_EQ(names.size(), 50u);
}

std::vector<std::string> withGrid(int rows, int columns, std::vector<std::string> more = {}) {
  std::vector<std::string> options{"--set", "enabled=YES", "--set", "icons=YES", "--set"};
  options.push_back("rows=" + std::to_string(rows));
  options.push_back("--set");
  options.push_back("columns=" + std::to_string(columns));
  options.insert(options.end(), more.begin(), more.end());
  return options;
}

TEST(PageFilling, CarriesWhatASmallerGridDoesNotHoldToFurtherPages) {
  EXPECT_EQ(pageSizes(withGrid(5, 3)), (Sizes{15, 15, 15, 15, 12}));
  EXPECT_EQ(pageSizes(withGrid(2, 2, {"--icons", "9"})), (Sizes{4, 4, 1}));
}

TEST(PageFilling, PutsNoMoreOnAPageThanTheStockGridHolds) {
  EXPECT_EQ(pageSizes(withGrid(8, 6)), (Sizes{24, 24, 24}));
  EXPECT_EQ(pageSizes(withGrid(10, 3)), (Sizes{24, 24, 24}));
  EXPECT_EQ(pageSizes(withGrid(3, 7, {"--pages", "1"})), (Sizes{21, 3}));
}

// A folder's and the dock's icons are none of the pages'.
TEST(PageFilling, NamesTheSameIconsWhateverTheGrid) {
  auto names = [](const Json& report) {
    Json all = Json::array();
    for (auto& page : report["pages"])
      for (auto& icon : page["icons"]) all.push_back(icon["name"]);
    return all;
  };
  EXPECT_EQ(names(reportWith(withGrid(2, 3))), names(reportWith({"--stock"})));
}

TEST(PageFilling, MovesNoIconBetweenPagesOnALiveChange) {
  test::Home home(withGrid(6, 4));
  Sizes before = sizes(home.report());
  for (int columns : {2, 8}) {
    home.save("rows"_ns, 2);
    home.save("columns"_ns, columns);
    for (size_t page = 0; page < 3; ++page) {
      home.page(page).setIconsNeedLayout();
      home.page(page).layoutIconsIfNeeded_domino.ifAnswered(0, NO);
    }
    home.step("wait 1");
    EXPECT_EQ(home.report()["pages"][0]["columns"], columns);
    EXPECT_EQ(sizes(home.report()), before);
  }
}

}  // namespace
