// What is on its way to an object when everybody lets go of it reaches no dead one.
#include <gtest/gtest.h>

#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/device.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/library/hud_fixture.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using bridge::original;
using test::PanelHome;

int deadPanels = 0;
void countDeath(tilo::RQPopupView self) {
  ++deadPanels;
  original<countDeath>(self);
}

class APanelThatEverybodyLetGoOf : public testing::Test {
 protected:
  APanelThatEverybodyLetGoOf() {
    deadPanels = 0;
    bridge::install(bridge::replace<tilo::RQPopupView, &NSObject::dealloc, countDeath>());
    home.open();
  }

  static void letGo() {
    const bridge::Pool turn;
    PanelHome::panel().removeFromSuperview();
    PanelHome::controller().popView.set({});
  }

  PanelHome home;
};

TEST_F(APanelThatEverybodyLetGoOf, LivesForItsTimer) {
  home.step("increment \"Top Inset\"");
  letGo();
  home.wait(1);
  EXPECT_EQ(deadPanels, 0);
  home.wait(3);
  EXPECT_EQ(deadPanels, 1);
}

TEST_F(APanelThatEverybodyLetGoOf, LivesForItsCancel) {
  {
    const bridge::Pool turn;
    PanelHome::panel().didHitCancel();
  }
  letGo();
  EXPECT_EQ(deadPanels, 0);
  home.wait(1);
  EXPECT_EQ(deadPanels, 1);
}

TEST_F(APanelThatEverybodyLetGoOf, LivesForItsHiding) {
  {
    const bridge::Pool turn;
    PanelHome::panel().hide();
  }
  letGo();
  EXPECT_EQ(deadPanels, 0);
  home.wait(1);
  EXPECT_EQ(deadPanels, 1);
}

TEST_F(APanelThatEverybodyLetGoOf, LivesForItsAlert) {
  home.step("tap \"Add\"");
  letGo();
  home.wait(1);
  EXPECT_EQ(deadPanels, 0);
  home.step("dismiss");
  home.wait(1);
  EXPECT_EQ(deadPanels, 1);
}

TEST_F(APanelThatEverybodyLetGoOf, HearsNoSliderAnyMore) {
  letGo();
  home.wait(0.1);
  EXPECT_EQ(deadPanels, 1);
  NSNotificationCenter::defaultCenter().postNotificationName_object("slider_buttons_pressed"_ns,
                                                                    bridge::Object());
}

int deadButtons = 0, deadLabels = 0;
void countButton(tilo::BButton self) {
  ++deadButtons;
  original<countButton>(self);
}
void countLabel(UILabel self) {
  ++deadLabels;
  original<countLabel>(self);
}

bridge::Strong<tilo::ColorSlider> makeNumberControl() {
  return bridge::make<tilo::ColorSlider, &tilo::ColorSlider::initWithFrame_type>(CGRect{{0, 0}, {200, 30}},
                                                                                 "topIconInset"_ns);
}

TEST(ANumberControlThatEverybodyLetGoOf, KeepsTheButtonThatFlashes) {
  PanelHome home;
  bridge::install(bridge::replace<tilo::BButton, &NSObject::dealloc, countButton>());
  {
    const bridge::Pool turn;
    makeNumberControl()->incrementValue(makeNumberControl()->addButton());
  }
  EXPECT_EQ(deadButtons, 3);
  home.wait(1);
  EXPECT_EQ(deadButtons, 4);
}

TEST(ANumberControlThatEverybodyLetGoOf, KeepsTheErrorThatFades) {
  PanelHome home;
  {
    const bridge::Pool turn;
    auto control = makeNumberControl();
    test::standIn<UILabel, &NSObject::dealloc, countLabel>();
    deadLabels = 0;
    control->errorWithMessage("Invalid number"_ns);
  }
  const int before = deadLabels;
  home.wait(1);
  EXPECT_EQ(deadLabels, before + 1);
}

TEST(AScrollViewThatEverybodyLetGoOf, HearsOfNoPanelAnyMore) {
  PanelHome home;
  bridge::make<SBIconScrollView, &NSObject::init>().clear();
  NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                    bridge::Object());
  home.wait(1);
  EXPECT_FALSE(home.report()["relayouts"].empty());
}

int deadNotices = 0;
void countNotice(tilo::RQProgressHUD self) {
  ++deadNotices;
  original<countNotice>(self);
}

class ANoticeThatEverybodyLetGoOf : public test::HUD {
 protected:
  ANoticeThatEverybodyLetGoOf() {
    deadNotices = 0;
    bridge::install(bridge::replace<tilo::RQProgressHUD, &NSObject::dealloc, countNotice>());
  }

  void letGo() {
    const bridge::Pool turn;
    hud->removeFromSuperview();
    hud.clear();
    view.clear();
  }
};

TEST_F(ANoticeThatEverybodyLetGoOf, LivesForItsDelayedHiding) {
  hud->show(NO);
  hud->hide_afterDelay(YES, 0.7);
  letGo();
  pass(0.5);
  EXPECT_EQ(deadNotices, 0);
  pass(1);
  EXPECT_EQ(deadNotices, 1);
}

TEST_F(ANoticeThatEverybodyLetGoOf, LivesForItsGraceTime) {
  hud->graceTime.set(1);
  hud->show(YES);
  letGo();
  pass(0.5);
  EXPECT_EQ(deadNotices, 0);
  pass(2);
  EXPECT_EQ(deadNotices, 1);
}

TEST_F(ANoticeThatEverybodyLetGoOf, LivesForItsLeastTime) {
  hud->minShowTime.set(1);
  hud->show(NO);
  hud->hide(YES);
  letGo();
  pass(0.5);
  EXPECT_EQ(deadNotices, 0);
  pass(2);
  EXPECT_EQ(deadNotices, 1);
}

TEST_F(ANoticeThatEverybodyLetGoOf, HearsOfNoTurn) {
  letGo();
  EXPECT_EQ(deadNotices, 1);
  home.step("rotate landscape");
  home.step("rotate portrait");
}

struct Turning : bridge::Face<"RQProgressHUD", tilo::RQProgressHUD> {
  MESSAGE Method<"deviceOrientationDidChange:", void(NSNotification)> deviceOrientationDidChange;
};

int turnsHeard = 0;
void countTurn(Turning self, NSNotification notification) {
  ++turnsHeard;
  original<countTurn>(self, notification);
}
void endWithATurn(UIView self) {
  NSNotificationCenter::defaultCenter().postNotificationName_object(
      bridge::as<NSString>(UIDeviceOrientationDidChangeNotification), bridge::Object());
  original<endWithATurn>(self);
}

TEST_F(ANoticeThatEverybodyLetGoOf, HearsOfNoTurnThatComesWhileItEnds) {
  bridge::install(bridge::replace<Turning, &Turning::deviceOrientationDidChange, countTurn>());
  test::standIn<UIView, &NSObject::dealloc, endWithATurn>();
  letGo();
  EXPECT_EQ(deadNotices, 1);
  EXPECT_EQ(turnsHeard, 0);
}

}  // namespace
