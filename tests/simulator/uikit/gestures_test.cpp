// What each kind of recogniser takes for its gesture.
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

class Gestures : public Fingers {
 protected:
  Strong<UIView> view = makeView({{0, 100}, {375, 500}});
  CGPoint start{150, 300};

  Gestures() { window->addSubview(view); }

  Log travelled(CGPoint from, CGPoint to, double seconds) {
    down(from);
    travel(from, to, seconds);
    up(to);
    return takeLog();
  }
};

using TapGesture = Gestures;

TEST_F(TapGesture, IsRecognisedWhenTheFingerLifts) {
  attach<UITapGestureRecognizer>(view, "tap");
  down(start);
  pass(0.2);
  EXPECT_EQ(takeLog(), Log{});
  up(start);
  EXPECT_EQ(takeLog(), Log{"tap ended"});  // confirmed: discrete
}

TEST_F(TapGesture, FailsWhenHeldTooLong) {
  attach<UITapGestureRecognizer>(view, "tap");
  down(start);
  pass(0.8);
  up(start);
  EXPECT_EQ(takeLog(), Log{});  // assumed: 0.75 s
  down(start);
  pass(0.7);
  up(start);
  EXPECT_EQ(takeLog(), Log{"tap ended"});
}

TEST_F(TapGesture, FailsWhenTheFingerGoesAway) {
  attach<UITapGestureRecognizer>(view, "tap");
  EXPECT_EQ(travelled(start, {start.x + 50, start.y}, 0.1), Log{});  // assumed: 45 points
  EXPECT_EQ(travelled(start, {start.x + 40, start.y}, 0.1), Log{"tap ended"});
}

TEST_F(TapGesture, TellsWhereItWas) {
  auto tap = attach<UITapGestureRecognizer>(view, "tap");
  Fingers::tap(start);
  EXPECT_EQ(tap->locationInView(view), (CGPoint{150, 200}));
}

TEST_F(TapGesture, OfTwoFingersWantsTwo) {
  attach<UITapGestureRecognizer>(view, "two")->numberOfTouchesRequired.set(2);
  tap(start);
  EXPECT_EQ(takeLog(), Log{});
  down(start, 1);
  pass(0.02);
  down({200, 300}, 2);
  pass(0.02);
  up(start, 1);
  EXPECT_EQ(takeLog(), Log{});
  up({200, 300}, 2);
  EXPECT_EQ(takeLog(), Log{"two ended"});  // confirmed: numberOfTouchesRequired
  down(start, 1);
  down({200, 300}, 2);
  down({250, 300}, 3);
  for (int finger : {1, 2, 3}) up(start, finger);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(TapGesture, OfTwoFingersWantsThemTogether) {
  attach<UITapGestureRecognizer>(view, "two")->numberOfTouchesRequired.set(2);
  tap(start);
  pass(0.05);
  tap({200, 300});
  EXPECT_EQ(takeLog(), Log{});  // confirmed: UIKit headers
}

TEST_F(TapGesture, OfOneFingerRefusesTwo) {
  attach<UITapGestureRecognizer>(view, "one");
  down(start, 1);
  down({200, 300}, 2);
  up(start, 1);
  up({200, 300}, 2);
  EXPECT_EQ(takeLog(), Log{});
  tap(start);
  EXPECT_EQ(takeLog(), Log{"one ended"});
}

TEST_F(TapGesture, TwiceWantsBothSoonAndNear) {
  attach<UITapGestureRecognizer>(view, "double")->numberOfTapsRequired.set(2);
  tap(start);
  pass(0.3);
  tap(start);
  EXPECT_EQ(takeLog(), Log{"double ended"});
  tap(start);
  pass(0.4);
  tap(start);
  pass(0.4);
  EXPECT_EQ(takeLog(), Log{});  // assumed: 0.35 s
  tap(start);
  pass(0.1);
  tap({start.x + 80, start.y});
  EXPECT_EQ(takeLog(), Log{});  // assumed: 45 points
}

class SwipeGesture : public Gestures {
 protected:
  Strong<UISwipeGestureRecognizer> swipe = attach<UISwipeGestureRecognizer>(view, "swipe");
};

TEST_F(SwipeGesture, IsRecognisedOnTheWay) {
  swipe->direction.set(UISwipeGestureRecognizerDirectionUp);
  down(start);
  travel(start, {150, 251}, 0.1);
  EXPECT_EQ(takeLog(), Log{});
  move({150, 250});
  EXPECT_EQ(takeLog(), Log{"swipe ended"});  // assumed: 50 points; confirmed: before the finger lifts
  EXPECT_EQ(swipe->state(), UIGestureRecognizerStatePossible);
  travel({150, 250}, {150, 150}, 0.1);
  up({150, 150});
  EXPECT_EQ(takeLog(), Log{});  // once
}

TEST_F(SwipeGesture, WantsItsDirection) {
  const std::pair<NSUInteger, CGPoint> ways[] = {{UISwipeGestureRecognizerDirectionRight, {250, 300}},
                                                 {UISwipeGestureRecognizerDirectionLeft, {50, 300}},
                                                 {UISwipeGestureRecognizerDirectionUp, {150, 200}},
                                                 {UISwipeGestureRecognizerDirectionDown, {150, 400}}};
  for (const auto& [direction, unused] : ways)
    for (const auto& [travelledIn, end] : ways) {
      swipe->direction.set(direction);
      EXPECT_EQ(!travelled(start, end, 0.15).empty(), direction == travelledIn)
          << direction << " by " << travelledIn;
    }
  swipe->direction.set(UISwipeGestureRecognizerDirectionUp | UISwipeGestureRecognizerDirectionLeft);
  EXPECT_EQ(travelled(start, {50, 300}, 0.15), Log{"swipe ended"});
  EXPECT_EQ(travelled(start, {150, 200}, 0.15), Log{"swipe ended"});
}

TEST_F(SwipeGesture, MustBeQuick) {
  EXPECT_EQ(travelled(start, {199, 300}, 0.4), Log{});
  EXPECT_EQ(travelled(start, {210, 300}, 1), Log{});  // assumed: 0.5 s
  EXPECT_EQ(travelled(start, {210, 300}, 0.4), Log{"swipe ended"});
}

TEST_F(SwipeGesture, MustNotGoAcross) {
  EXPECT_EQ(travelled(start, {210, 370}, 0.2), Log{});  // assumed
  EXPECT_EQ(travelled(start, {210, 340}, 0.2), Log{"swipe ended"});
}

TEST_F(SwipeGesture, TellsWhereItBegan) {
  travelled(start, {250, 300}, 0.15);
  EXPECT_EQ(swipe->locationInView({}), start);  // confirmed: Apple documentation of UISwipeGestureRecognizer
}

TEST_F(SwipeGesture, WantsItsNumberOfFingers) {
  swipe->numberOfTouchesRequired.set(2);
  EXPECT_EQ(travelled(start, {250, 300}, 0.15), Log{});
  down(start, 1);
  down({150, 350}, 2);
  for (int x = 160; x <= 250; x += 10) {
    pass(1.0 / 60);
    send({{1, UITouchPhaseMoved, {double(x), 300}}, {2, UITouchPhaseMoved, {double(x), 350}}});
  }
  EXPECT_EQ(takeLog(), Log{"swipe ended"});
}

class PanGesture : public Gestures {
 protected:
  Strong<UIPanGestureRecognizer> pan = attach<UIPanGestureRecognizer>(view, "pan");
};

TEST_F(PanGesture, BeginsAfterTenPoints) {
  down(start);
  move({159, 300});
  EXPECT_EQ(takeLog(), Log{});  // assumed: 10 points
  move({160, 300});
  move({165, 300});
  up({165, 300});
  EXPECT_EQ(takeLog(), (Log{"pan began", "pan changed", "pan ended"}));
  tap(start);
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(PanGesture, TranslatesFromWhereTheFingerCameDown) {
  down(start);
  move({160, 300});
  EXPECT_EQ(pan->translationInView(view), (CGPoint{10, 0}));  // assumed: with the first ten points
  move({170, 320});
  EXPECT_EQ(pan->translationInView(view), (CGPoint{20, 20}));  // confirmed: cumulative
  pan->setTranslation_inView({0, 0}, view);
  EXPECT_EQ(pan->translationInView(view), (CGPoint{0, 0}));
  EXPECT_EQ(pan->velocityInView(view), (CGPoint{0, 0}));  // confirmed: setTranslation:inView: resets it
  move({173, 320});
  EXPECT_EQ(pan->translationInView(view), (CGPoint{3, 0}));
  pan->setTranslation_inView({100, 50}, view);
  EXPECT_EQ(pan->translationInView(view), (CGPoint{100, 50}));
}

TEST_F(PanGesture, TranslatesInTheViewsOwnCoordinates) {
  view->transform.set({2, 0, 0, 2, 0, 0});
  down(start);
  move({170, 300});
  EXPECT_EQ(pan->translationInView(view), (CGPoint{10, 0}));
  EXPECT_EQ(pan->translationInView({}), (CGPoint{20, 0}));
}

TEST_F(PanGesture, KnowsItsVelocity) {
  down(start);
  travel(start, {250, 300}, 0.2);
  EXPECT_NEAR(pan->velocityInView(view).x, 500, 1);
  EXPECT_NEAR(pan->velocityInView(view).y, 0, 1e-9);
  pass(0.2);
  EXPECT_EQ(pan->velocityInView(view), (CGPoint{0, 0}));  // assumed: a finger that rests has none
}

TEST_F(PanGesture, GoesOnWithAnotherFingerWithoutAJump) {
  down(start, 1);
  move({170, 300}, 1);
  down({270, 400}, 2);
  EXPECT_EQ(pan->translationInView(view), (CGPoint{20, 0}));  // assumed
  move({180, 300}, 1);
  EXPECT_EQ(pan->translationInView(view), (CGPoint{25, 0}));
  up({180, 300}, 1);
  EXPECT_EQ(pan->translationInView(view), (CGPoint{25, 0}));
  up({270, 400}, 2);
  EXPECT_EQ(takeLog().back(), "pan ended");
}

TEST_F(PanGesture, KeepsToItsNumbersOfFingers) {
  pan->minimumNumberOfTouches.set(2);
  EXPECT_EQ(travelled(start, {250, 300}, 0.2), Log{});
  pan->minimumNumberOfTouches.set(1);
  pan->maximumNumberOfTouches.set(1);
  down(start, 1);
  down({200, 300}, 2);
  move({250, 300}, 1);
  EXPECT_EQ(takeLog(), Log{});
}

class LongPressGesture : public Gestures {
 protected:
  Strong<UILongPressGestureRecognizer> press = attach<UILongPressGestureRecognizer>(view, "press");
};

TEST_F(LongPressGesture, BeginsWhenTheTimeIsOver) {
  down(start);
  pass(0.49);
  EXPECT_EQ(takeLog(), Log{});
  pass(0.02);
  EXPECT_EQ(takeLog(), Log{"press began"});  // confirmed: 0.5 s, continuous
  move({200, 300});
  up({200, 300});
  EXPECT_EQ(takeLog(), (Log{"press changed", "press ended"}));
}

TEST_F(LongPressGesture, FailsWhenTheFingerMovesOrLifts) {
  down(start);
  pass(0.1);
  move({161, 300});
  pass(1);
  up({161, 300});
  EXPECT_EQ(takeLog(), Log{});  // confirmed: allowableMovement 10
  down(start);
  pass(0.4);
  up(start);
  pass(1);
  EXPECT_EQ(takeLog(), Log{});
}

}  // namespace
}  // namespace test
