// The panel is out of sight while a layout's name is asked for, and never longer.
#include <gtest/gtest.h>

#include "platform/uikit/alert_controller.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/alerts/presentation.hpp"
#include "simulator/uikit/views/view.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using test::PanelHome;

UIViewController root() { return UIApplication::sharedApplication().keyWindow().rootViewController(); }

class APanelThatAsksForAName : public testing::Test {
 protected:
  APanelThatAsksForAName() { home.open(); }

  void add() {
    const bridge::Pool turn;
    home.panel().saveCurrentLayout({});
  }
  double alpha() { return home.shown()["alpha"]; }

  PanelHome home;
};

TEST_F(APanelThatAsksForAName, AsksByAnAlertThatFadesIn) {
  home.step("tap \"Add\"");
  const UIView alert = root().presentedViewController().view();
  const auto opacity = [alert] { return sim::uikit::layerOf(alert).presentation(sim::clock::now()).opacity; };
  EXPECT_EQ(opacity(), 0);
  home.wait(1);
  EXPECT_EQ(opacity(), 1);
}

TEST_F(APanelThatAsksForAName, ComesBackWhereTheAlertIsRefused) {
  home.step("refuse-alerts");
  home.step("tap \"Add\"");
  home.wait(0.5);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(APanelThatAsksForAName, ComesBackWhereThereIsNoRootController) {
  const auto kept = bridge::retained(root());
  UIApplication::sharedApplication().keyWindow().rootViewController.set({});
  add();
  home.wait(0.5);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(APanelThatAsksForAName, ComesBackWhereAnotherAlertStandsAlready) {
  root().presentViewController_animated_completion(
      UIAlertController::alertControllerWithTitle_message_preferredStyle("Battery"_ns, "20 %"_ns,
                                                                         UIAlertControllerStyleAlert),
      NO, {});
  add();
  home.wait(0.5);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(APanelThatAsksForAName, ComesBackWhenTheAlertGoesWithoutAButton) {
  home.step("tap \"Add\"");
  home.wait(1);
  EXPECT_EQ(alpha(), 0);
  home.step("dismiss");
  home.wait(0.5);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(APanelThatAsksForAName, StaysAwayForAsLongAsTheAlertStands) {
  home.step("tap \"Add\"");
  home.wait(100);
  EXPECT_EQ(alpha(), 0);
}

// Somebody may keep an alert that has gone.
TEST_F(APanelThatAsksForAName, IsNotBroughtBackByAnEarlierAlert) {
  home.step("tap \"Add\"");
  auto earlier = bridge::retained(root().presentedViewController());
  home.step("dismiss");
  add();
  home.wait(1);
  earlier.clear();
  home.wait(1);
  EXPECT_EQ(alpha(), 0);
  home.step("choose \"Cancel\"");
  home.wait(0.5);
  EXPECT_EQ(alpha(), 1);
}

// The same, of an alert that was answered.
TEST_F(APanelThatAsksForAName, ComesBackWithTheAnswerNotWithTheAlertsEnd) {
  for (const char* answer : {"Add", "Cancel"}) {
    home.step("tap \"Add\"");
    home.wait(0.5);
    const auto kept = bridge::retained(root().presentedViewController());
    home.step(std::string("choose \"") + answer + "\"");
    home.wait(0.5);
    EXPECT_EQ(alpha(), 1) << answer;
  }
}

TEST_F(APanelThatAsksForAName, StaysFadedForASliderWhenAnAnsweredAlertDies) {
  for (const char* answer : {"Add", "Cancel"}) {
    home.step("tap \"Add\"");
    auto kept = bridge::retained(root().presentedViewController());
    home.step(std::string("choose \"") + answer + "\"");
    home.wait(1);
    home.step("increment \"Top Inset\" 1");
    home.wait(0.5);
    kept.clear();
    home.wait(0.5);
    EXPECT_EQ(alpha(), 0.5) << answer;
    home.wait(4);
  }
}

TEST_F(APanelThatAsksForAName, IsUsableWhenItHasComeBack) {
  home.step("refuse-alerts");
  home.step("tap \"Add\"");
  home.wait(0.5);
  sim::uikit::refusePresentations(false);
  home.step("tap \"Add\"");
  home.step("enter \"Home\"");
  home.step("choose \"Add\"");
  home.wait(0.5);
  EXPECT_EQ(home.shown()["presets"], sim::Json::array({"Home"}));
  EXPECT_EQ(alpha(), 1);
}

}  // namespace
