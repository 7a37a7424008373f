// Which view a touch is for.
#include "platform/uikit/image_view.hpp"
#include "platform/uikit/label.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class Touches : public UIKit {
 protected:
  Strong<UIWindow> window = makeWindow();
  Strong<UIView> view = makeView({{100, 100}, {100, 100}});

  Touches() { window->addSubview(view); }
  UIView hit(CGFloat x, CGFloat y) { return window->hitTest_withEvent({x, y}, {}); }
};

TEST_F(Touches, DeepestViewUnderThePointIsHit) {
  auto child = makeView({{10, 10}, {10, 10}});
  view->addSubview(child);
  EXPECT_TRUE(hit(115, 115) == child.get());  // confirmed: device-facts 7.4
  EXPECT_TRUE(hit(150, 150) == view.get());
  EXPECT_TRUE(hit(10, 10) == window.get());
  EXPECT_FALSE(hit(-1, 10));
}

TEST_F(Touches, FrontViewIsHitFirst) {
  auto front = makeView({{100, 100}, {100, 100}});
  window->addSubview(front);
  EXPECT_TRUE(hit(150, 150) == front.get());  // confirmed: device-facts 7.4
  window->bringSubviewToFront(view);
  EXPECT_TRUE(hit(150, 150) == view.get());
}

TEST_F(Touches, NearEdgesAreInsideAndFarOnesAreNot) {
  EXPECT_TRUE(view->pointInside_withEvent({0, 0}, {}));  // confirmed: device-facts 7.4
  EXPECT_TRUE(view->pointInside_withEvent({99.9, 99.9}, {}));
  EXPECT_FALSE(view->pointInside_withEvent({100, 50}, {}));
  EXPECT_FALSE(view->pointInside_withEvent({50, 100}, {}));
  EXPECT_FALSE(view->pointInside_withEvent({-0.1, 50}, {}));
}

TEST_F(Touches, WhatCannotBeTouchedIsPassedOver) {
  view->hidden.set(YES);
  EXPECT_TRUE(hit(150, 150) == window.get());  // confirmed: device-facts 7.4
  view->hidden.set(NO);
  view->userInteractionEnabled.set(NO);
  EXPECT_TRUE(hit(150, 150) == window.get());
  view->userInteractionEnabled.set(YES);
  view->alpha.set(0.009);
  EXPECT_TRUE(hit(150, 150) == window.get());
  view->alpha.set(0.01);
  EXPECT_TRUE(hit(150, 150) == view.get());
}

TEST_F(Touches, ChildOutsideItsParentIsNotHit) {
  auto child = makeView({{90, 90}, {50, 50}});
  view->addSubview(child);
  EXPECT_TRUE(hit(195, 195) == child.get());
  EXPECT_TRUE(hit(220, 220) == window.get());  // confirmed: device-facts 7.4
}

TEST_F(Touches, TransformsCount) {
  view->transform.set({0.5, 0, 0, 0.5, 0, 0});
  EXPECT_TRUE(hit(120, 120) == window.get());  // confirmed: device-facts 7.4
  EXPECT_TRUE(hit(130, 130) == view.get());
}

TEST_F(Touches, ImageViewsAndLabelsTakeNone) {
  auto label = make<UILabel, &UIView::initWithFrame>(CGRect{{0, 0}, {50, 50}});
  auto image = make<UIImageView, &UIView::initWithFrame>(CGRect{{50, 50}, {50, 50}});
  view->addSubview(label);
  view->addSubview(image);
  EXPECT_TRUE(hit(110, 110) == view.get());  // confirmed: device-facts 7.4
  EXPECT_TRUE(hit(160, 160) == view.get());
}

TEST_F(Touches, AnimatedViewTakesNoneUnlessAllowed) {
  const UIView target = view;
  UIView::animateWithDuration_animations(1, Block<void()>([=] { target.alpha.set(0.5); }));
  EXPECT_TRUE(hit(150, 150) == window.get());  // confirmed: device-facts 7.5
  pass(1);
  EXPECT_TRUE(hit(150, 150) == view.get());
  UIView::animateWithDuration_delay_options_animations_completion(
      1, 0, UIViewAnimationOptionAllowUserInteraction, Block<void()>([=] { target.alpha.set(1); }), {});
  EXPECT_TRUE(hit(150, 150) == view.get());
}

}  // namespace
}  // namespace test
