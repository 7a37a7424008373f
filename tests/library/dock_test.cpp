// The dock: how many icons it holds, and hiding it.
#include "platform/springboard/dock.hpp"

#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::install;
using bridge::original;
using bridge::replace;
using test::Home;

constexpr NSInteger portrait = 1;

NSUInteger dockRows() {
  return SBIconListView::iconRowsForInterfaceOrientation.on(bridge::classNamed<SBDockIconListView>(),
                                                            portrait);
}

// The four questions about the dock's size.
std::vector<long> counts(Home& home) {
  return {static_cast<long>(home.dock().iconsInRowForSpacingCalculation()),
          static_cast<long>(SBDockIconListView::maxIcons()), static_cast<long>(dockRows()),
          static_cast<long>(SBDockIconListView::maxVisibleIconRowsInterfaceOrientation(portrait))};
}

TEST(Dock, IsSpringBoardsOwnWithoutTheSwitch) {
  Home stock({"--set", "dockIcons=6"});
  EXPECT_EQ(counts(stock), (std::vector<long>{4, 4, 1, 1}));
  EXPECT_FALSE(SBDockIconListView::isDockIconsEnabled());
}

TEST(Dock, IsSpringBoardsOwnWithTheSwitchOff) {
  Home home({"--set", "dockIconsEnabled=NO", "--set", "dockIcons=3", "--ios", "12.1"});
  EXPECT_EQ(counts(home), (std::vector<long>{4, 4, 1, 1}));
  EXPECT_NE(home.dock().spacing.ifAnswered(), 10);
}

TEST(Dock, HoldsFourWithoutANumber) {
  Home home({"--set", "dockIconsEnabled=YES"});
  EXPECT_EQ(SBDockIconListView::numberOfDockIcons(), 4);
  EXPECT_EQ(counts(home), (std::vector<long>{4, 4, 4, 4}));
}

TEST(Dock, OfThreeAnswersThreeAndIsSpacedByTen) {
  Home home({"--set", "dockIconsEnabled=YES", "--set", "dockIcons=3", "--ios", "12.1"});
  EXPECT_EQ(counts(home), (std::vector<long>{3, 3, 3, 3}));
  EXPECT_EQ(home.dock().spacing.ifAnswered(), 10);
  sim::Json icons = home.report()["dock"]["icons"];
  ASSERT_EQ(icons.size(), 3);
  EXPECT_EQ(icons[1]["frame"][0].get<double>() - icons[0]["frame"][0].get<double>(), 60 + 10);
}

// SpringBoard's dock as it was before it had a spacing to set.
int spacingsSet = 0;
BOOL hasNoSpacing(SBDockIconListView self, SEL selector) {
  return sel_isEqual(selector, bridge::selector<"setSpacing:">()) ? NO
                                                                  : original<hasNoSpacing>(self, selector);
}
void countSpacing(SBDockIconListView, CGFloat) { ++spacingsSet; }

TEST(Dock, OfThreeIsNotSpacedWhereSpringBoardHasNoSpacingToSet) {
  Home home({"--set", "dockIconsEnabled=YES", "--set", "dockIcons=3"}, [](sim::Simulation&) {
    install(replace<SBDockIconListView, &NSObject::respondsToSelector, hasNoSpacing>());
    install(replace<SBDockIconListView, &SBDockIconListView::setSpacing, countSpacing>());
  });
  EXPECT_EQ(spacingsSet, 0);
  EXPECT_EQ(counts(home), (std::vector<long>{3, 3, 3, 3}));
}

TEST(Dock, OfSixAnswersSixAndKeepsTheSystemsSpacing) {
  Home home({"--set", "dockIconsEnabled=YES", "--set", "dockIcons=6", "--ios", "12.1"});
  EXPECT_EQ(counts(home), (std::vector<long>{6, 6, 6, 6}));
  EXPECT_NEAR(home.dock().spacing.ifAnswered(), (375 - 6 * 60) / 7.0, 1e-9);
  EXPECT_EQ(home.report()["dock"]["icons"].size(), 6);
}

TEST(Dock, PassesANegativeCountOnAsItStands) {
  Home home({"--set", "dockIconsEnabled=YES", "--set", "dockIcons=-2"});
  EXPECT_EQ(counts(home), (std::vector<long>{-2, -2, -2, -2}));
}

TEST(Dock, ReadsAStringThatIsNoNumberAsZero) {
  Home home({"--set", "dockIconsEnabled=YES", "--set", "dockIcons=many", "--ios", "12.1"});
  EXPECT_EQ(counts(home), (std::vector<long>{0, 0, 0, 0}));
  EXPECT_EQ(home.dock().spacing.ifAnswered(), 10);
  EXPECT_EQ(home.report()["dock"]["icons"].size(), 0);
}

TEST(Dock, CountsWholeIconsAlone) {
  Home home({"--set", "dockIconsEnabled=YES", "--set", "dockIcons=3.9", "--ios", "12.1"});
  EXPECT_EQ(counts(home), (std::vector<long>{3, 3, 3, 3}));
  EXPECT_EQ(home.dock().spacing.ifAnswered(), 10);
}

TEST(Dock, TakesThirtyTwoBitsOfItsNumber) {
  Home home({"--set", "dockIconsEnabled=YES"});
  home.save("dockIcons"_ns, NSNumber::numberWithLongLong((5LL << 32) - 3));
  EXPECT_EQ(counts(home), (std::vector<long>{-3, -3, -3, -3}));
}

int seven(id, SEL) { return 7; }

// Where SpringBoard has the method itself, ours is not added.
TEST(Dock, AsksSpringBoardForItsNumberWhereThatHasOne) {
  Home home({"--set", "dockIconsEnabled=YES", "--set", "dockIcons=3", "--ios", "12.1"}, [](sim::Simulation&) {
    class_addMethod(bridge::classOf(reinterpret_cast<id>(bridge::classNamed<SBDockIconListView>())),
                    bridge::selector<"numberOfDockIcons">(), reinterpret_cast<IMP>(&seven), "i@:");
  });
  EXPECT_EQ(counts(home), (std::vector<long>{7, 7, 7, 7}));
  EXPECT_NE(home.dock().spacing.ifAnswered(), 10);
}

TEST(Dock, SpacesByTenWhateverTheCount) {
  Home home({"--ios", "12.1"});
  EXPECT_EQ(home.dock().effectiveSpacing.ifAnswered(), 10);
  EXPECT_EQ(home.report()["dock"]["icons"][0]["frame"][0], 10);
}

TEST(Dock, IsGoneWhenItIsHidden) {
  Home home({"--set", "dock=YES"});
  sim::Json dock = home.report()["dock"];
  EXPECT_EQ(dock["height"], 0);
  EXPECT_EQ(dock["alpha"], 0);
  EXPECT_EQ(SBDockView::defaultHeight(), 0);
}

TEST(Dock, KeepsItsBackgroundWhenItIsHidden) {
  Home home({"--set", "dock=YES"});
  sim::springboard::homeScreen().dockView->setBackgroundAlpha(0.25);
  home.step("wait 1");
  EXPECT_EQ(home.report()["dock"]["backgroundAlpha"], 1);
}

TEST(Dock, FadesItsBackgroundInThreeTenthsOfASecond) {
  Home home;
  home.step("wait 1");
  sim::springboard::homeScreen().dockView->setBackgroundAlpha(0.5);
  home.step("wait 0.15");
  EXPECT_NEAR(home.report()["dock"]["backgroundAlpha"].get<double>(), 0.75, 0.001);
  home.step("wait 0.15");
  EXPECT_NEAR(home.report()["dock"]["backgroundAlpha"].get<double>(), 0.5, 1e-9);
}

TEST(Dock, FindsTheIconAtAPointAsSpringBoardDoes) {
  Home home;
  sim::Json second = home.report()["dock"]["icons"][1];
  NSUInteger index = 99;
  int order = 99;
  CGPoint inside{second["frame"][0].get<double>() + 5, second["frame"][1].get<double>() + 5};
  SBIcon found =
      home.dock().iconAtPoint_index_proposedOrder_grabbedIcon.ifAnswered(inside, &index, &order, {});
  EXPECT_EQ(second["name"], found.displayName.ifAnswered().UTF8String());
  EXPECT_EQ(index, 1);
}

}  // namespace
