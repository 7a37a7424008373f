// Animation blocks: what is shown when, and when completions are called.
#include <numeric>

#include "platform/uikit/color.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class Animation : public UIKit {
 protected:
  Strong<UIWindow> window = makeWindow();
  Strong<UIView> owner = makeView({{0, 0}, {100, 100}});
  UIView view = owner;
  std::vector<int> completions;

  Animation() { window->addSubview(view); }
  // Completions that wait still write into this object.
  ~Animation() override {
    view.removeFromSuperview();
    turn();
  }

  Block<void()> fade(double alpha) {
    return [this, alpha] { view.alpha.set(alpha); };
  }
  // Writes down `mark` when it finished, its negative when it was cut short.
  Block<void(BOOL)> note(int mark) {
    return [this, mark](BOOL finished) { completions.push_back(finished ? mark : -mark); };
  }
  double alpha() { return shown(view).opacity; }
};

TEST_F(Animation, ModelChangesAtOnceAndTheScreenFollows) {
  UIView::animateWithDuration_animations(1, fade(0));
  EXPECT_EQ(view.alpha(), 0);  // confirmed: device-facts 7.5
  EXPECT_EQ(alpha(), 1);
  pass(0.5);
  EXPECT_NEAR(alpha(), 0.5, 1e-3);  // ease-in-out is symmetric; confirmed: device-facts 7.5
  pass(0.5);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(Animation, CurveIsEaseInOutUnlessAskedFor) {
  UIView::animateWithDuration_animations(1, fade(0));
  pass(0.25);
  EXPECT_NEAR(alpha(), 1 - sim::easeInOutCurve.progress(0.25), 1e-9);  // confirmed: device-facts 7.5
  pass(1);
  UIView::animateWithDuration_delay_options_animations_completion(1, 0, UIViewAnimationOptionCurveLinear,
                                                                  fade(1), {});
  pass(0.25);
  EXPECT_NEAR(alpha(), 0.25, 1e-9);
  pass(1);
  UIView::animateWithDuration_delay_options_animations_completion(1, 0, UIViewAnimationOptionCurveEaseOut,
                                                                  fade(0), {});
  pass(0.25);
  EXPECT_NEAR(alpha(), 1 - sim::easeOutCurve.progress(0.25), 1e-9);
  pass(1);
  UIView::animateWithDuration_delay_options_animations_completion(1, 0, UIViewAnimationOptionCurveEaseIn,
                                                                  fade(1), {});
  pass(0.25);
  EXPECT_NEAR(alpha(), sim::easeInCurve.progress(0.25), 1e-9);
}

TEST_F(Animation, CompletionIsCalledAtTheEnd) {
  UIView::animateWithDuration_animations_completion(0.5, fade(0), note(1));
  pass(0.49);
  EXPECT_TRUE(completions.empty());
  pass(0.01);
  EXPECT_EQ(completions, std::vector{1});  // confirmed: device-facts 7.5
  pass(1);
  EXPECT_EQ(completions, std::vector{1});
  EXPECT_TRUE(sim::uikit::layerOf(view).animations().empty());
  EXPECT_EQ(sim::uikit::nextAnimationEvent(), std::nullopt);
}

TEST_F(Animation, DelayHoldsTheOldValue) {
  UIView::animateWithDuration_delay_options_animations_completion(0.5, 0.5, 0, fade(0), note(1));
  EXPECT_EQ(view.alpha(), 0);
  pass(0.4);
  EXPECT_EQ(alpha(), 1);  // confirmed: Apple documentation of the delay
  pass(0.35);
  EXPECT_NEAR(alpha(), 0.5, 1e-3);
  pass(0.2);
  EXPECT_TRUE(completions.empty());
  pass(0.05);
  EXPECT_EQ(completions, std::vector{1});
}

TEST_F(Animation, NoDurationMeansNoAnimation) {
  UIView::animateWithDuration_animations_completion(0, fade(0), note(1));
  EXPECT_EQ(alpha(), 0);  // confirmed: device-facts 7.5
  EXPECT_TRUE(completions.empty());
  turn();
  EXPECT_EQ(completions, std::vector{1});
}

TEST_F(Animation, WithoutChangesCompletesOnTheNextTurn) {
  UIView::animateWithDuration_animations_completion(5, fade(1), note(1));
  EXPECT_TRUE(completions.empty());
  turn();
  EXPECT_EQ(completions, std::vector{1});  // assumed
}

TEST_F(Animation, OutsideTheWindowNothingIsAnimated) {
  auto loose = makeView();
  const UIView target = loose;
  UIView::animateWithDuration_animations_completion(1, Block<void()>([=] { target.alpha.set(0); }), note(1));
  EXPECT_EQ(shown(loose).opacity, 0);  // assumed
  turn();
  EXPECT_EQ(completions, std::vector{1});
}

TEST_F(Animation, WhatACompletionStartsWaitsForTheNextTurn) {
  UIView::animateWithDuration_animations_completion(0, fade(0), Block<void(BOOL)>([this](BOOL) {
                                                      UIView::animateWithDuration_animations_completion(
                                                          0, fade(1), note(2));
                                                    }));
  turn();
  EXPECT_TRUE(completions.empty());
  turn();
  EXPECT_EQ(completions, std::vector{2});  // confirmed: device-facts 7.5
}

TEST_F(Animation, AllAnimatableValuesMove) {
  view.backgroundColor.set(UIColor::blackColor());
  UIView::animateWithDuration_delay_options_animations_completion(
      1, 0, UIViewAnimationOptionCurveLinear, Block<void()>([this] {
        view.frame.set({{100, 0}, {200, 100}});
        view.backgroundColor.set(UIColor::whiteColor());
        view.layer().cornerRadius.set(10);
        view.transform.set({3, 0, 0, 3, 0, 0});
      }),
      {});
  pass(0.5);
  const sim::LayerValues values = shown(view);
  EXPECT_NEAR(values.position.x, 125, 1e-9);  // confirmed: Apple documentation of animatable properties
  EXPECT_NEAR(values.bounds.size.width, 150, 1e-9);
  EXPECT_NEAR(values.backgroundColor.red, 0.5, 1e-9);
  EXPECT_NEAR(values.cornerRadius, 5, 1e-9);  // assumed
  EXPECT_NEAR(values.transform.a, 2, 1e-9);
}

TEST_F(Animation, AnimationsAddUp) {
  UIView::animateWithDuration_animations(1, fade(0));
  pass(0.5);
  const double before = alpha();
  UIView::animateWithDuration_animations(1, fade(1));
  EXPECT_NEAR(alpha(), before, 1e-9) << "no jump";  // confirmed: device-facts 7.5
  pass(0.5);
  EXPECT_NEAR(alpha(), 1 - (1 - sim::easeInOutCurve.progress(0.5)), 1e-3);
  pass(0.5);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(Animation, FromTheCurrentStateTakesTheOldOnesPlace) {
  UIView::animateWithDuration_animations_completion(1, fade(0), note(1));
  pass(0.5);
  UIView::animateWithDuration_delay_options_animations_completion(
      1, 0, UIViewAnimationOptionBeginFromCurrentState | UIViewAnimationOptionCurveLinear, fade(1), note(2));
  EXPECT_NEAR(alpha(), 0.5, 1e-3);
  turn();
  EXPECT_EQ(completions, std::vector{-1});  // confirmed: device-facts 7.5
  pass(0.5);
  EXPECT_NEAR(alpha(), 0.75, 1e-3);
  pass(0.5);
  EXPECT_EQ(completions, (std::vector{-1, 2}));
}

TEST_F(Animation, FromTheCurrentStateMayChangeAValueTwice) {
  UIView::animateWithDuration_delay_options_animations_completion(
      1, 0, UIViewAnimationOptionBeginFromCurrentState, Block<void()>([this] {
        view.alpha.set(0.5);
        view.alpha.set(0);
      }),
      note(1));
  EXPECT_EQ(alpha(), 1);
  pass(1);
  EXPECT_EQ(completions, std::vector{1});
}

TEST_F(Animation, LeavingTheWindowEndsIt) {
  UIView::animateWithDuration_animations_completion(1, fade(0), note(1));
  pass(0.5);
  view.removeFromSuperview();
  EXPECT_EQ(alpha(), 0);
  turn();
  EXPECT_EQ(completions, std::vector{-1});  // confirmed: device-facts 7.5
}

TEST_F(Animation, RemovingAllAnimationsShowsTheModel) {
  UIView::animateWithDuration_animations_completion(1, fade(0), note(1));
  view.layer().removeAllAnimations();
  EXPECT_EQ(alpha(), 0);  // confirmed: Apple documentation of removeAllAnimations
  turn();
  EXPECT_EQ(completions, std::vector{-1});
}

TEST_F(Animation, RepeatsForEver) {
  UIView::animateWithDuration_delay_options_animations_completion(
      1, 0, UIViewAnimationOptionRepeat | UIViewAnimationOptionAutoreverse | UIViewAnimationOptionCurveLinear,
      fade(0), note(1));
  pass(7.25);
  EXPECT_NEAR(alpha(), 0.25, 1e-6);  // on its way back; confirmed: Apple documentation of the options
  EXPECT_TRUE(completions.empty());
  EXPECT_EQ(sim::uikit::nextAnimationEvent(), std::nullopt);
}

TEST_F(Animation, InnerBlockInheritsDurationAndCurve) {
  UIView::animateWithDuration_delay_options_animations_completion(
      2, 0, UIViewAnimationOptionCurveLinear,
      Block<void()>([this] { UIView::animateWithDuration_animations_completion(0.5, fade(0), note(2)); }),
      note(1));
  turn();
  EXPECT_EQ(completions, std::vector{1}) << "it animated nothing itself";
  pass(0.5);
  EXPECT_NEAR(alpha(), 0.75, 1e-9);  // confirmed: device-facts 7.5
  pass(1.5);
  EXPECT_EQ(completions, (std::vector{1, 2}));
}

TEST_F(Animation, InnerBlockMayInsistOnItsOwn) {
  UIView::animateWithDuration_animations(2, Block<void()>([this] {
                                           UIView::animateWithDuration_delay_options_animations_completion(
                                               0.5, 0,
                                               UIViewAnimationOptionOverrideInheritedDuration |
                                                   UIViewAnimationOptionOverrideInheritedCurve |
                                                   UIViewAnimationOptionCurveLinear,
                                               fade(0), note(1));
                                         }));
  pass(0.25);
  EXPECT_NEAR(alpha(), 0.5, 1e-9);  // confirmed: Apple documentation of the options
  pass(0.25);
  EXPECT_EQ(completions, std::vector{1});
}

TEST_F(Animation, PerformWithoutAnimationHoldsItOff) {
  UIView::animateWithDuration_animations(1, Block<void()>([this] {
                                           UIView::performWithoutAnimation(Block<void()>([this] {
                                             EXPECT_FALSE(UIView::areAnimationsEnabled());
                                             view.alpha.set(0);
                                           }));
                                           EXPECT_TRUE(UIView::areAnimationsEnabled());
                                           view.center.set({500, 50});
                                         }));
  EXPECT_EQ(alpha(), 0);  // confirmed: Apple documentation of performWithoutAnimation:
  EXPECT_EQ(shown(view).position.x, 50);
}

TEST_F(Animation, CanBeSwitchedOff) {
  EXPECT_TRUE(UIView::areAnimationsEnabled());
  UIView::setAnimationsEnabled(NO);
  UIView::animateWithDuration_animations_completion(1, fade(0), note(1));
  UIView::setAnimationsEnabled(YES);
  EXPECT_EQ(alpha(), 0);  // confirmed: Apple documentation of setAnimationsEnabled:
  turn();
  EXPECT_EQ(completions, std::vector{1});
}

TEST_F(Animation, CompletionsComeInTheOrderOfTheirEnds) {
  UIView::animateWithDuration_animations_completion(0.3, fade(0), note(3));
  UIView::animateWithDuration_animations_completion(0.1, fade(1), note(1));
  UIView::animateWithDuration_animations_completion(0.2, fade(0), note(2));
  sim::clock::advanceTo(sim::clock::now() + 1);
  turn();
  EXPECT_EQ(completions, (std::vector{1, 2, 3}));
}

TEST_F(Animation, BlockThatRaisesLeavesNothingBehind) {
  EXPECT_THROW(
      UIView::animateWithDuration_animations(1, Block<void()>([] { throw std::runtime_error("no"); })),
      std::runtime_error);
  view.alpha.set(0);
  EXPECT_EQ(alpha(), 0);
  turn();
  EXPECT_EQ(sim::uikit::nextAnimationEvent(), std::nullopt);
}

}  // namespace
}  // namespace test
