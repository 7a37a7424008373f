// The main path, in every build: the library loads, and the grid follows the settings.
#include <gtest/gtest.h>

#include "tests/support/home.hpp"

namespace {

TEST(HomeScreen, IsSpringBoardsOwnWithoutTheLibrary) {
  test::Home home({"--device", "iPhone 7", "--stock"});
  sim::Json page = home.report()["pages"][0];
  EXPECT_EQ(page["rows"], 6);
  EXPECT_EQ(page["columns"], 4);
  EXPECT_EQ(page["sideInset"], 27);
  EXPECT_EQ(home.report()["loaded"], false);
}

TEST(HomeScreen, FollowsTheStoredSpacing) {
  test::Home home({"--device", "iPhone 7", "--set", "enabled=YES", "--set", "custom_preset=-1", "--set",
                   "vertIconPadding=5.5", "--set", "horiIconPadding=9", "--set", "sideIconInset=48", "--set",
                   "topIconInset=33"});
  sim::Json icons = home.report()["pages"][0]["icons"];
  EXPECT_EQ(icons[0]["frame"], sim::Json({48, 33, 60, 74}));
  EXPECT_EQ(icons[5]["frame"], sim::Json({48 + 60 + 9, 33 + 74 + 5.5, 60, 74}));
}

TEST(HomeScreen, FollowsTheStoredRowsAndColumns) {
  test::Home home({"--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=5", "--set", "columns=3"});
  sim::Json report = home.report();
  EXPECT_EQ(report["pages"][0]["rows"], 5);
  EXPECT_EQ(report["pages"][0]["columns"], 3);
  EXPECT_EQ(report["pages"][0]["icons"].size(), 15);
}

}  // namespace
