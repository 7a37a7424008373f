// What the dock's replacements hand on to SpringBoard, and what they do when it is laid out again.
#include <gtest/gtest.h>

#include "platform/springboard/dock.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using bridge::original;
using test::Home;

NSInteger rowsAskedFor = 0, visibleRowsAskedFor = 0;
NSUInteger systemRows(Class, NSInteger orientation) {
  rowsAskedFor = orientation;
  return 11;
}
NSUInteger systemVisibleRows(Class, NSInteger orientation) {
  visibleRowsAskedFor = orientation;
  return 12;
}

TEST(DockCounts, AreAskedOfSpringBoardForTheSameOrientation) {
  Home home(test::homeOptions("iPhone 7", {"dockIcons=6"}), [](sim::Simulation&) {
    test::standIn<SBDockIconListView, &SBIconListView::iconRowsForInterfaceOrientation, systemRows>();
    test::standIn<SBDockIconListView, &SBDockIconListView::maxVisibleIconRowsInterfaceOrientation,
                  systemVisibleRows>();
  });
  for (NSInteger orientation : {1, 2, 3, 4}) {
    EXPECT_EQ(SBIconListView::iconRowsForInterfaceOrientation.on(bridge::classNamed<SBDockIconListView>(),
                                                                 orientation),
              11u);
    EXPECT_EQ(rowsAskedFor, orientation);
    EXPECT_EQ(SBDockIconListView::maxVisibleIconRowsInterfaceOrientation(orientation), 12u);
    EXPECT_EQ(visibleRowsAskedFor, orientation);
  }
}

TEST(DockCounts, OfTheUserAreTheSameInLandscape) {
  Home home(test::homeOptions("iPhone 7 Plus", {"dockIconsEnabled=YES", "dockIcons=5"},
                              {"--orientation", "landscape"}));
  for (NSInteger orientation : {1, 2, 3, 4}) {
    EXPECT_EQ(SBIconListView::iconRowsForInterfaceOrientation.on(bridge::classNamed<SBDockIconListView>(),
                                                                 orientation),
              5u);
    EXPECT_EQ(SBDockIconListView::maxVisibleIconRowsInterfaceOrientation(orientation), 5u);
  }
  EXPECT_EQ(home.dock().iconsInRowForSpacingCalculation(), 5u);
}

struct Asked {
  CGPoint point;
  NSUInteger* index;
  int* order;
  id grabbed;
} asked;
SBIcon systemIconAtPoint(SBDockIconListView, CGPoint point, NSUInteger* index, int* order, SBIcon grabbed) {
  asked = {point, index, order, grabbed.raw};
  *index = 7;
  *order = 8;
  return grabbed;
}

TEST(DockIconAtAPoint, IsAskedOfSpringBoardWithAllThatWasGiven) {
  Home home(test::homeOptions("iPhone 7", {}), [](sim::Simulation&) {
    test::standIn<SBDockIconListView, &SBDockIconListView::iconAtPoint_index_proposedOrder_grabbedIcon,
                  systemIconAtPoint>();
  });
  NSUInteger index = 0;
  int order = 0;
  auto grabbed = bridge::as<SBIcon>(home.dock().icons().objectAtIndex(1));
  SBIcon found =
      home.dock().iconAtPoint_index_proposedOrder_grabbedIcon.ifAnswered({3, 4}, &index, &order, grabbed);
  EXPECT_EQ(asked.point, (CGPoint{3, 4}));
  EXPECT_EQ(asked.index, &index);
  EXPECT_EQ(asked.order, &order);
  EXPECT_EQ(asked.grabbed, grabbed.raw);
  EXPECT_EQ(found.raw, grabbed.raw);
  EXPECT_EQ(index, 7u);
  EXPECT_EQ(order, 8);
}

TEST(DockSpacing, IsTheSystemsForFourIconsOfNoStoredNumber) {
  Home home(test::homeOptions("iPhone 7", {"dockIconsEnabled=YES"}, {"--ios", "12.1"}));
  EXPECT_NEAR(home.dock().spacing.ifAnswered(), (375 - 4 * 60) / 5., 1e-9);
}

TEST(DockLayout, DoesTheSameEveryTime) {
  Home home(
      test::homeOptions("iPhone 7", {"dockIconsEnabled=YES", "dockIcons=3", "dock=YES"}, {"--ios", "12.1"}));
  home.dock().setSpacing.ifAnswered(25);
  home.dock().alpha.set(1);
  home.dock().setNeedsLayout();
  home.dock().layoutIfNeeded();
  EXPECT_EQ(home.dock().spacing.ifAnswered(), 10);
  EXPECT_EQ(home.dock().alpha(), 0);
}

int laidOut = 0;
void systemLayout(SBDockIconListView self) {
  ++laidOut;
  original<systemLayout>(self);
  self.alpha.set(1);
  self.setSpacing.ifAnswered(25);
}

TEST(DockLayout, IsSpringBoardsOwnFirst) {
  Home home(
      test::homeOptions("iPhone 7", {"dockIconsEnabled=YES", "dockIcons=3", "dock=YES"}, {"--ios", "12.1"}),
      [](sim::Simulation&) { test::standIn<SBDockIconListView, &UIView::layoutSubviews, systemLayout>(); });
  EXPECT_GT(laidOut, 0);
  EXPECT_EQ(home.dock().alpha(), 0);
  EXPECT_EQ(home.dock().spacing.ifAnswered(), 10);
}

}  // namespace
