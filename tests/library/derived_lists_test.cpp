// Folders and docks whose class is a child of SpringBoard's, as that of an object is that somebody observes:
// they keep SpringBoard's own grid like those that they come from.
#include <gtest/gtest.h>

#include "tests/library/grid_home.hpp"

namespace {

using test::Home;

const std::vector<std::string> customGrid{"enabled=YES",       "icons=YES",        "rows=6",
                                          "columns=3",         "custom_preset=-1", "horiIconPadding=77",
                                          "vertIconPadding=88"};

void becomeOfAClassOfItsOwn(bridge::Object list) {
  Class own = objc_allocateClassPair(bridge::classOf(list.raw), "ListOfSomebody", 0);
  objc_registerClassPair(own);
  *reinterpret_cast<Class*>(list.raw) = own;
}

std::vector<double> answersOf(SBIconListView list) {
  return {static_cast<double>(list.iconRowsForCurrentOrientation()),
          static_cast<double>(list.iconRowsForSpacingCalculation()),
          static_cast<double>(list.iconColumnsForCurrentOrientation()), list.horizontalIconPadding(),
          list.verticalIconPadding()};
}

TEST(AChildOfAFolder, KeepsTheSystemsGrid) {
  Home home(test::homeOptions("iPad Air 2", customGrid));
  const auto before = answersOf(home.folder());
  becomeOfAClassOfItsOwn(home.folder());
  EXPECT_EQ(answersOf(home.folder()), before);
}

TEST(AChildOfTheDock, KeepsTheSystemsGrid) {
  Home home(test::homeOptions("iPad Air 2", customGrid));
  const auto before = answersOf(home.dock());
  becomeOfAClassOfItsOwn(home.dock());
  EXPECT_EQ(answersOf(home.dock()), before);
}

TEST(AChildOfAPage, FollowsTheSettings) {
  Home home(test::homeOptions("iPad Air 2", customGrid));
  becomeOfAClassOfItsOwn(home.page(0));
  EXPECT_EQ(answersOf(home.page(0)), (std::vector<double>{6, 6, 3, 77, 88}));
}

}  // namespace
