// The home screen's pages: which one is on screen, and asking for one by its index.
#include <gtest/gtest.h>

#include "simulator/springboard/icon_controller.hpp"
#include "tests/support/home.hpp"

namespace {

class Pages : public testing::Test {
 protected:
  test::Home home{{"--stock", "--pages", "4"}};
  SBIconController controller = SBIconController::sharedInstance();

  static void scrollTo(double pages) {
    auto& scrollView = sim::springboard::homeScreen().scrollView;
    scrollView->contentOffset.set({pages * scrollView->bounds().size.width, 0});
  }

  SBIconListView listAt(NSUInteger index) {
    id list = nullptr;
    controller.getListView_folder_relativePath_forIndexPath_createIfNecessary(
        &list, nullptr, nullptr, NSIndexPath::indexPathWithIndex(index), YES);
    return bridge::as<SBIconListView>(list);
  }
};

TEST_F(Pages, StartWithTheFirst) {
  EXPECT_EQ(controller.currentIconListIndex(), 0);
  EXPECT_EQ(controller.currentRootIconList(), home.page(0));
}

TEST_F(Pages, OnScreenHaveTheirIndexAndList) {
  for (int page : {3, 1, 2, 0}) {
    scrollTo(page);
    EXPECT_EQ(controller.currentIconListIndex(), page);
    EXPECT_EQ(controller.currentRootIconList(), home.page(static_cast<size_t>(page)));
  }
}

TEST_F(Pages, HalfWayBetweenTwoIsTheNearerOne) {
  scrollTo(1.4);
  EXPECT_EQ(controller.currentIconListIndex(), 1);
  scrollTo(1.6);
  EXPECT_EQ(controller.currentIconListIndex(), 2);
}

TEST_F(Pages, AreFoundByTheirIndexWhateverIsOnScreen) {
  for (int shown : {0, 3}) {
    scrollTo(shown);
    for (size_t page = 0; page < 4; ++page) EXPECT_EQ(listAt(page), home.page(page));
  }
}

TEST_F(Pages, BeyondTheLastHaveNoList) {
  EXPECT_FALSE(listAt(4));
  EXPECT_FALSE(listAt(100));
  EXPECT_FALSE(listAt(static_cast<NSUInteger>(-1)));
}

TEST_F(Pages, BelongToNoFolderAndHaveNoPathWithinIt) {
  id list = nullptr, folder = home.page(0).raw, path = home.page(0).raw;
  controller.getListView_folder_relativePath_forIndexPath_createIfNecessary(
      &list, &folder, &path, NSIndexPath::indexPathWithIndex(1), NO);
  EXPECT_EQ(list, home.page(1).raw);
  EXPECT_EQ(folder, nullptr);
  EXPECT_EQ(path, nullptr);
}

TEST_F(Pages, NeedNotBeWanted) {
  controller.getListView_folder_relativePath_forIndexPath_createIfNecessary(
      nullptr, nullptr, nullptr, NSIndexPath::indexPathWithIndex(1), NO);
}

TEST_F(Pages, HaveADotEach) { EXPECT_EQ(home.report()["pageDots"]["count"], 4); }

TEST(TurnedPages, KeepThePageOnScreen) {
  test::Home home({"--stock", "--device", "iPad Air 2", "--pages", "3"});
  auto& scrollView = sim::springboard::homeScreen().scrollView;
  scrollView->contentOffset.set({2 * scrollView->bounds().size.width, 0});
  home.step("rotate landscape");
  EXPECT_EQ(SBIconController::sharedInstance().currentIconListIndex(), 2);
  EXPECT_EQ(scrollView->bounds().size.width, 1024);
  home.step("rotate portrait");
  EXPECT_EQ(SBIconController::sharedInstance().currentIconListIndex(), 2);
  EXPECT_EQ(scrollView->bounds().size.width, 768);
}

}  // namespace
