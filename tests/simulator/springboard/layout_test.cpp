// Icon lists put their icons where the answers to six messages say, and nothing else has a say in it.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::original;
using sim::Json;

// What a replaced method answers on top of the stock answer.
double more = 0;

template <class List, auto Member>
struct Raised {
  static CGFloat answer(List self) { return original<answer>(self) + more; }
};

template <auto Member>
struct RaisedCount {
  static NSUInteger answer(SBIconListView self) {
    return original<answer>(self) + static_cast<NSUInteger>(more);
  }
};

template <auto Member>
struct RaisedClassCount {
  static NSUInteger answer(Class self, NSInteger orientation) {
    return original<answer>(self, orientation) + static_cast<NSUInteger>(more);
  }
};

template <class List, auto Member>
void raiseLength(double by) {
  more = by;
  bridge::install(bridge::replace<List, Member, Raised<List, Member>::answer>());
}

template <auto Member>
void raiseCount(double by) {
  more = by;
  bridge::install(bridge::replace<SBIconListView, Member, RaisedCount<Member>::answer>());
}

template <class List, auto Member>
void raiseClassCount(double by) {
  more = by;
  bridge::install(bridge::replace<List, Member, RaisedClassCount<Member>::answer>());
}

class StockLayout : public testing::Test {
 protected:
  test::Home home{{"--stock", "--device", "iPhone 7"}};
  Json before = home.report();

  void layOut(SBIconListView list) {
    list.setIconsNeedLayout();
    list.layoutIconsIfNeeded_domino.ifAnswered(0, NO);
  }

  // Where the icons of the first page are after it was laid out again; of everything else nothing has moved.
  Json movedIcons() {
    for (size_t page = 0; page < 3; ++page) layOut(home.page(page));
    layOut(home.dock());
    Json after = home.report();
    EXPECT_EQ(after["dock"]["icons"], before["dock"]["icons"]);
    EXPECT_EQ(frames(after, 1), frames(after, 0));
    EXPECT_EQ(frames(after, 2), frames(after, 0));
    EXPECT_EQ(after["pageDots"], before["pageDots"]);
    return frames(after, 0);
  }

  // By `across` for each column and `down` for each row, from a start that has moved by `x` and `y`.
  Json expected(double x, double across, double y, double down) {
    Json result = frames(before, 0);
    for (size_t i = 0; i < result.size(); ++i) {
      result[i][0] = result[i][0].get<double>() + x + static_cast<double>(i % 4) * across;
      result[i][1] = result[i][1].get<double>() + y + static_cast<double>(i / 4) * down;
    }
    return result;
  }

  static Json frames(const Json& report, size_t page) {
    Json all = Json::array();
    for (auto& icon : report["pages"][page]["icons"]) all.push_back(icon["frame"]);
    return all;
  }
};

// Measured on a phone of this size: first column at 27 points, 87 points apart; 88 points from row to row.
TEST_F(StockLayout, IsThatOfTheScreen) {
  Json icons = frames(before, 0);
  ASSERT_EQ(icons.size(), 24u);
  double side = before["pages"][0]["sideInset"], top = before["pages"][0]["topInset"];
  EXPECT_NEAR(side, 27, 3);
  EXPECT_NEAR(top, 30, 3);
  EXPECT_NEAR(icons[1][0].get<double>() - icons[0][0].get<double>(), 87, 3);
  EXPECT_NEAR(icons[4][1].get<double>() - icons[0][1].get<double>(), 88, 3);
  EXPECT_EQ(icons[0][0], side);
  EXPECT_EQ(icons[0][1], top);
  EXPECT_EQ(icons[23][2], 60);
}

TEST_F(StockLayout, IsMadeOfInsetsPaddingsAndTheSizeOfAnIcon) {
  const Json& page = before["pages"][0];
  double pitchX = page["icons"][0]["frame"][2].get<double>() + page["horizontalPadding"].get<double>();
  double pitchY = page["icons"][0]["frame"][3].get<double>() + page["verticalPadding"].get<double>();
  Json icons = frames(before, 0);
  for (size_t i = 0; i < icons.size(); ++i) {
    EXPECT_EQ(icons[i][0], page["sideInset"].get<double>() + static_cast<double>(i % 4) * pitchX);
    EXPECT_EQ(icons[i][1], page["topInset"].get<double>() + static_cast<double>(i / 4) * pitchY);
  }
}

TEST_F(StockLayout, StaysWhenItIsAskedForAgain) { EXPECT_EQ(movedIcons(), frames(before, 0)); }

TEST_F(StockLayout, MovesSidewaysWithTheSideInset) {
  raiseLength<SBRootIconListView, &SBIconListView::sideIconInset>(5);
  EXPECT_EQ(movedIcons(), expected(5, 0, 0, 0));
}

TEST_F(StockLayout, MovesDownWithTheTopInset) {
  raiseLength<SBRootIconListView, &SBIconListView::topIconInset>(-8);
  EXPECT_EQ(movedIcons(), expected(0, 0, -8, 0));
}

TEST_F(StockLayout, SpreadsSidewaysWithTheHorizontalPadding) {
  raiseLength<SBIconListView, &SBIconListView::horizontalIconPadding>(3);
  EXPECT_EQ(movedIcons(), expected(0, 3, 0, 0));
}

TEST_F(StockLayout, SpreadsDownWithTheVerticalPadding) {
  raiseLength<SBIconListView, &SBIconListView::verticalIconPadding>(-40);
  EXPECT_EQ(movedIcons(), expected(0, 0, 0, -40));
}

TEST_F(StockLayout, FillsTheColumnsThereAre) {
  raiseCount<&SBIconListView::iconColumnsForCurrentOrientation>(1);
  Json icons = movedIcons(), stock = frames(before, 0);
  double pitch = stock[1][0].get<double>() - stock[0][0].get<double>();
  for (size_t i = 0; i < icons.size(); ++i) {
    EXPECT_EQ(icons[i][0], stock[0][0].get<double>() + static_cast<double>(i % 5) * pitch);
    EXPECT_EQ(icons[i][1], stock[i / 5 * 4][1]);
  }
}

// The row count decides how many icons a page takes when it is filled; those that it has stay where they are.
TEST_F(StockLayout, KeepsItsIconsWhateverTheRows) {
  raiseCount<&SBIconListView::iconRowsForCurrentOrientation>(2);
  EXPECT_EQ(home.report()["pages"][0]["rows"], 8);
  EXPECT_EQ(movedIcons(), frames(before, 0));
}

TEST_F(StockLayout, DoesNotFollowTheRowsForSpacing) {
  raiseCount<&SBIconListView::iconRowsForSpacingCalculation>(2);
  EXPECT_EQ(home.report()["pages"][0]["rowsForSpacing"], 8);
  EXPECT_EQ(movedIcons(), frames(before, 0));
}

TEST_F(StockLayout, DoesNotFollowTheClass) {
  raiseClassCount<SBIconListView, &SBIconListView::iconRowsForInterfaceOrientation>(2);
  raiseClassCount<SBIconListView, &SBIconListView::iconColumnsForInterfaceOrientation>(2);
  Json report = home.report();
  EXPECT_EQ(report["classRows"], 8);
  EXPECT_EQ(report["classColumns"], 6);
  EXPECT_EQ(report["pages"][0]["rows"], 6);
  EXPECT_EQ(report["pages"][0]["columns"], 4);
  EXPECT_EQ(movedIcons(), frames(before, 0));
}

TEST_F(StockLayout, OfAFolderFollowsItsOwnMessages) {
  SBFolderIconListView folder = home.folder();
  auto second = [&] {
    return folder.viewForIcon(bridge::as<SBIcon>(folder.icons().objectAtIndex(1))).frame();
  };
  layOut(folder);
  CGRect place = second();
  raiseLength<SBIconListView, &SBIconListView::horizontalIconPadding>(11);
  layOut(folder);
  EXPECT_EQ(second().origin.x, place.origin.x + 11);
  EXPECT_EQ(second().origin.y, place.origin.y);
}

TEST_F(StockLayout, IsLaidOutOnlyWhenItIsMarked) {
  raiseLength<SBRootIconListView, &SBIconListView::sideIconInset>(5);
  home.page(0).layoutIconsIfNeeded_domino.ifAnswered(0, NO);
  EXPECT_EQ(frames(home.report(), 0), frames(before, 0));
  home.page(0).setIconsNeedLayout();
  EXPECT_EQ(frames(home.report(), 0), frames(before, 0));
  home.page(0).layoutIconsIfNeeded_domino.ifAnswered(0, NO);
  EXPECT_EQ(frames(home.report(), 0), expected(5, 0, 0, 0));
}

TEST_F(StockLayout, GlidesForTheDurationItIsGiven) {
  raiseLength<SBRootIconListView, &SBIconListView::sideIconInset>(40);
  home.page(0).setIconsNeedLayout();
  home.page(0).layoutIconsIfNeeded_domino.ifAnswered(0.2, YES);
  double start = frames(before, 0)[0][0];
  auto x = [&] { return frames(home.report(), 0)[0][0].get<double>(); };
  EXPECT_EQ(x(), start);
  home.step("wait 0.1");
  EXPECT_GT(x(), start);
  EXPECT_LT(x(), start + 40);
  home.step("wait 0.1");
  EXPECT_EQ(x(), start + 40);
}

}  // namespace
