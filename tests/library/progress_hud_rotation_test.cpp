// A notice box on a device that is turned.
#include "tests/library/hud_fixture.hpp"

namespace test {
namespace {

constexpr CGAffineTransform quarter{0, 1, -1, 0, 0, 0};

class ProgressHUDRotation : public HUD {
 protected:
  explicit ProgressHUDRotation(std::vector<std::string> options = {"--device", "iPad Air 2"})
      : HUD(std::move(options)) {}

  void intoWindow() { window().addSubview(hud); }
};

class ProgressHUDInLandscape : public ProgressHUDRotation {
 protected:
  ProgressHUDInLandscape() : ProgressHUDRotation({"--device", "iPad Air 2", "--orientation", "landscape"}) {}
};

TEST_F(ProgressHUDRotation, OfAHUDInTheWindowTurnsIt) {
  intoWindow();
  EXPECT_EQ(hud->transform(), identityTransform);
  home.step("rotate landscape");
  EXPECT_EQ(hud->transform(), quarter);
  home.step("rotate portrait");
  EXPECT_EQ(hud->transform(), identityTransform);
}

TEST_F(ProgressHUDRotation, OfAHUDInTheWindowLetsItCoverTheWindow) {
  intoWindow();
  home.step("rotate landscape");
  EXPECT_EQ(hud->bounds(), (CGRect{{}, {768, 1024}}));
  EXPECT_EQ(hud->frame(), window().bounds());
  home.step("rotate portrait");
  EXPECT_EQ(hud->frame(), window().bounds());
}

TEST_F(ProgressHUDRotation, OfAHUDInAViewLeavesTheTurningToTheView) {
  view->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  home.step("rotate landscape");
  EXPECT_EQ(hud->transform(), identityTransform);
  EXPECT_EQ(hud->frame(), view->bounds());
  EXPECT_EQ(hud->bounds().size, (CGSize{1024, 768}));
}

// Of a view that lets its subviews stand when it is laid out anew.
TEST_F(ProgressHUDRotation, PutsTheHUDInTheMiddleOfItsViewAgain) {
  view->autoresizesSubviews.set(NO);
  view->bounds.set({{10, 20}, {300, 200}});
  home.step("rotate landscape");
  EXPECT_EQ(hud->frame(), (CGRect{{10, 20}, {300, 200}}));
}

TEST_F(ProgressHUDRotation, OfAHUDWithoutAViewDoesNothing) {
  hud->removeFromSuperview();
  const CGRect before = hud->frame();
  home.step("rotate landscape");
  EXPECT_EQ(hud->frame(), before);
  EXPECT_EQ(hud->transform(), identityTransform);
}

TEST_F(ProgressHUDRotation, IsTheSizeThatItZoomsTo) {
  intoWindow();
  home.step("rotate landscape");
  hud->animationType.set(2);
  hud->show(YES);
  EXPECT_NEAR(shown(hud.get()).transform.b, 0.5, 1e-6);
  EXPECT_NEAR(shown(hud.get()).transform.a, 0, 1e-6);
  pass(0.15);
  EXPECT_NEAR(shown(hud.get()).transform.b, 0.75, 0.01);
  EXPECT_NEAR(shown(hud.get()).transform.a, 0, 1e-6);
  pass(0.15);
  EXPECT_EQ(shown(hud.get()).transform, quarter);
  hud->hide(YES);
  EXPECT_EQ(hud->transform(), (CGAffineTransform{0, 1.5, -1.5, 0, 0, 0}));
}

TEST_F(ProgressHUDRotation, IsForgottenInAnotherView) {
  intoWindow();
  home.step("rotate landscape");
  view->addSubview(hud);
  EXPECT_EQ(hud->transform(), identityTransform);
}

TEST_F(ProgressHUDRotation, LeavesNothingOfAHUDThatDied) {
  intoWindow();
  hud->removeFromSuperview();
  hud.clear();
  home.step("rotate landscape");
}

TEST_F(ProgressHUDInLandscape, IsTurnedAsItComesIntoTheWindow) {
  EXPECT_EQ(hud->transform(), identityTransform);
  intoWindow();
  EXPECT_EQ(hud->transform(), quarter);
  EXPECT_EQ(hud->frame(), (CGRect{{}, {1024, 768}}));
}

}  // namespace
}  // namespace test
