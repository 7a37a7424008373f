// How icons look: square corners, hidden labels and dots, and what a launch does to the panel.
#include <gtest/gtest.h>

#include "platform/springboard/icon.hpp"
#include "platform/springboard/icon_label.hpp"
#include "platform/springboard/ui_controller.hpp"
#include "simulator/springboard/icon_label.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "tests/support/home.hpp"

namespace {

using test::Home;

sim::Json firstIcon(Home& home) { return home.report()["pages"][0]["icons"][0]; }

TEST(SquareIcons, NeedNoMasterSwitch) {
  Home home({"--set", "enabled=NO", "--set", "square=YES"});
  EXPECT_EQ(firstIcon(home)["square"], true);
}

TEST(SquareIcons, AreOffWithoutTheSetting) {
  Home home({"--set", "enabled=YES"});
  EXPECT_EQ(firstIcon(home)["square"], false);
}

TEST(SquareIcons, LeaveTheCornerRadiusAsItIs) {
  Home home({"--set", "square=YES"});
  EXPECT_NEAR(SBIconImageView::cornerRadius(), 60 * 0.225, 1e-9);
}

TEST(Labels, AreHiddenWhileTheLibraryIsOn) {
  Home home({"--set", "enabled=YES", "--set", "labels=NO", "--springboard", "complete"});
  EXPECT_EQ(firstIcon(home)["label"]["visible"], false);
  auto parameters = sim::springboard::makeLabelParameters("Name"_ns);
  EXPECT_EQ(sim::uikit::colorOf(parameters->textColor()).alpha, 0);
  EXPECT_EQ(sim::uikit::colorOf(parameters->shadowColor.ifAnswered()).alpha, 0);
  CGRect rect = SBIconLabelImage::_rectWithDrawing_inRect_fromParameters(NO, {{1, 2}, {80, 14}}, parameters);
  EXPECT_EQ(rect, (CGRect{{0, 0}, {0, 0}}));
}

TEST(Labels, AreHiddenWithoutTheKey) {
  Home home({"--set", "enabled=YES"});
  EXPECT_EQ(firstIcon(home)["label"]["visible"], false);
}

TEST(Labels, AreTheSystemsWhenTheyAreWanted) {
  Home home({"--set", "enabled=YES", "--set", "labels=YES"});
  EXPECT_EQ(firstIcon(home)["label"]["visible"], true);
  auto parameters = sim::springboard::makeLabelParameters("Name"_ns);
  EXPECT_EQ(sim::uikit::colorOf(parameters->textColor()), sim::whiteColor);
  CGRect rect = SBIconLabelImage::_rectWithDrawing_inRect_fromParameters(NO, {{1, 2}, {80, 14}}, parameters);
  EXPECT_GT(rect.size.width, 20);
  EXPECT_EQ(rect.size.height, 14);
}

TEST(Labels, AreTheSystemsWhileTheLibraryIsOff) {
  Home home({"--set", "enabled=NO", "--set", "labels=NO"});
  EXPECT_EQ(firstIcon(home)["label"]["visible"], true);
}

TEST(PageDots, AreNeverDrawnWhileTheyAreHidden) {
  Home home({"--set", "enabled=YES", "--set", "page=NO"});
  EXPECT_EQ(home.report()["pageDots"]["count"], 3);
  EXPECT_EQ(home.report()["pageDots"]["drawn"], 0);
}

TEST(PageDots, AreHiddenWithoutTheKey) {
  Home home({"--set", "enabled=YES"});
  EXPECT_EQ(home.report()["pageDots"]["drawn"], 0);
}

TEST(PageDots, AreDrawnWithoutTheMasterSwitch) {
  Home home({"--set", "page=NO"});
  EXPECT_EQ(home.report()["pageDots"]["drawn"], 3);
}

// No system that is known draws them by this one, or launches by that below.
TEST(PageDots, AreHiddenByTheMessageWithoutANumberToo) {
  Home home({"--springboard", "complete", "--set", "enabled=YES", "--set", "page=NO"});
  EXPECT_EQ(home.report()["pageDots"]["drawn"], 0);
}

TEST(PageDots, AreDrawnByTheMessageWithoutANumberToo) {
  Home home({"--springboard", "complete", "--set", "enabled=YES", "--set", "page=YES"});
  EXPECT_EQ(home.report()["pageDots"]["drawn"], 3);
}

TEST(PageDots, AreDrawnWhileTheLibraryIsOff) {
  Home home({"--set", "enabled=NO", "--set", "page=NO"});
  EXPECT_EQ(home.report()["pageDots"]["drawn"], 3);
}

class LaunchByEitherMessage : public testing::TestWithParam<const char*> {};

TEST_P(LaunchByEitherMessage, ClosesAnOpenPanelFirst) {
  Home home({"--springboard", GetParam(), "--set", "enabled=YES", "--set", "quick=YES", "--set",
             "custom_preset=-1", "--set", "sideIconInset=27", "--set", "horiIconPadding=27", "--set",
             "topIconInset=30", "--set", "vertIconPadding=14"});
  home.step("swipe up");
  ASSERT_FALSE(home.report()["panel"].isNull());
  home.step("launch \"Calendar\"");
  EXPECT_EQ(home.report()["application"], "Calendar");
  home.step("wait 1");
  EXPECT_TRUE(home.report()["panel"].isNull());
  home.step("home");
  EXPECT_TRUE(home.report()["application"].isNull());
}

INSTANTIATE_TEST_SUITE_P(SpringBoard, LaunchByEitherMessage, testing::Values("real", "complete"));

// Every system has a message of its own for it.
class LaunchOn : public testing::TestWithParam<const char*> {
 protected:
  Home home{{"--device", "iPhone 6s", "--ios", GetParam(), "--set", "enabled=YES", "--set", "quick=YES",
             "--set", "custom_preset=-1"}};

  void expectLaunch() {
    home.step("launch \"Calendar\"");
    EXPECT_EQ(home.report()["application"], "Calendar");
    home.step("wait 1");
    EXPECT_EQ(home.report()["panel"], nullptr);
    EXPECT_EQ(home.report()["relayouts"], sim::Json::array());
  }
};

TEST_P(LaunchOn, NeedsNoPanel) { expectLaunch(); }

TEST_P(LaunchOn, NeedsNoPanelThatIsStillThere) {
  home.step("swipe up");
  home.step("wait 1");
  home.step("tap \"close\"");
  home.step("wait 1");
  ASSERT_EQ(home.report()["panel"], nullptr);
  expectLaunch();
}

INSTANTIATE_TEST_SUITE_P(Systems, LaunchOn, testing::Values("9.3.3", "10.3.3", "11.1.2", "12.1"));

}  // namespace
