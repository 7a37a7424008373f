// Applications on screen, one at a time.
#include "simulator/springboard/applications.hpp"

#include <gtest/gtest.h>

#include "tests/support/home.hpp"

namespace {

using test::Home;

TEST(Application, MakesRoomForOneThatIsOpenedWhileItOpens) {
  Home home({"--stock"});
  home.step("tap 318 412");  // Settings, whose window is kept
  sim::springboard::openApplication("Camera");
  home.step("wait 1");
  EXPECT_EQ(home.report()["application"].dump(), "\"Camera\"");
  home.step("home");
  home.step("wait 1");
  home.step("launch \"Settings\"");  // which says so when something lies over the icon
}

TEST(Application, LeavesTheHomeScreenNoTouchesWhileItOpens) {
  Home home({"--stock"});
  home.step("tap 318 412");  // Settings
  home.step("tap 318 60");   // where Camera is
  home.step("wait 1");
  EXPECT_EQ(home.report()["application"].dump(), "\"Settings\"");
}

TEST(Application, GivesTheHomeScreenItsTouchesBackAsItGoes) {
  Home home({"--stock"});
  home.step("tap 318 412");
  home.step("wait 1");
  home.step("home");
  home.step("tap 318 60");
  home.step("wait 1");
  EXPECT_EQ(home.report()["application"].dump(), "\"Camera\"");
}

}  // namespace
