// What a layout that is stretched to the screen asks SpringBoard for, and what comes of answers that nobody
// expects.
#include "platform/springboard/icon_list_view.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using test::Home;
using test::standIn;

NSUInteger answer = 0;
NSUInteger upright(Class, NSInteger orientation) { return orientation == 1 ? answer : 50; }
NSUInteger uprightColumns(Class self, NSInteger orientation) { return upright(self, orientation); }

class AStretchedLayout : public testing::Test {
 protected:
  AStretchedLayout() {
    standIn<SBIconListView, &SBIconListView::iconRowsForInterfaceOrientation, upright>();
    standIn<SBIconListView, &SBIconListView::iconColumnsForInterfaceOrientation, uprightColumns>();
  }

  Home home{test::homeOptions("iPhone 7", {"enabled=YES", "custom_preset=0"},
                              test::withPresets({test::preset("a", 0, 10, 0, 10, 0)}))};
};

TEST_F(AStretchedLayout, GoesByTheCountsOfAScreenThatIsHeldUpright) {
  answer = 5;
  EXPECT_DOUBLE_EQ(home.page(0).verticalIconPadding(), 10 * (1334. / 1136) * 1.4);
  EXPECT_DOUBLE_EQ(home.page(0).sideIconInset(), 10 * (750. / 640) * 1.4 * (4. / 5));
}

TEST_F(AStretchedLayout, MovesNothingWhereItComesToNoNumber) {
  answer = 0;
  EXPECT_EQ(home.page(0).horizontalIconPadding(), 0);
  EXPECT_EQ(home.page(0).topIconInset(), 0);
}

TEST(WithoutAChosenLayout, TheFirstOneIsInForce) {
  Home home(test::homeOptions(
      "iPhone 7", {"enabled=YES"},
      test::withPresets({test::preset("first", 1, 5, 6, 7, 8), test::preset("second", 1, 15, 16, 17, 18)})));
  EXPECT_EQ(home.page(0).verticalIconPadding(), 5);
  EXPECT_EQ(home.page(0).sideIconInset(), 7);
}

}  // namespace
