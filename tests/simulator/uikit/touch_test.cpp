// What touches and events tell, and which views hear of them.
#include "platform/uikit/event.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

class Touch : public Fingers {
 protected:
  Strong<TouchView> view = touchView({{100, 100}, {100, 100}}, "view");
};

// A view that keeps what it is given.
struct KeepingView : bridge::Face<"TestKeepingView", UIView> {};
struct Kept {
  Strong<UITouch> touch;
  NSUInteger all = 0, ofView = 0;
};
using KeepingClass = bridge::Implementation<KeepingView, Kept>;

void keep(KeepingView self, NSSet touches, UIEvent event) {
  Kept& kept = KeepingClass::state(self);
  kept.touch = retained(bridge::as<UITouch>(touches.anyObject()));
  kept.all = event.allTouches().count();
  kept.ofView = event.touchesForView(self).count();
}

class KeptTouch : public Fingers {
 protected:
  KeptTouch() {
    KeepingClass::define<UIView>(method<&UIResponder::touchesBegan_withEvent, keep>(),
                                 method<&UIResponder::touchesMoved_withEvent, keep>(),
                                 method<&UIResponder::touchesEnded_withEvent, keep>());
    view = make<KeepingView, &UIView::initWithFrame>(CGRect{{100, 100}, {100, 100}});
    window->addSubview(view);
  }
  // A touch keeps its view.
  ~KeptTouch() override { KeepingClass::state(view.get()).touch.clear(); }

  Strong<KeepingView> view;
  UITouch touch() { return KeepingClass::state(view.get()).touch; }
};

TEST_F(KeptTouch, TellsWhereItIsAndWas) {
  down({120, 130});
  EXPECT_EQ(touch().locationInView(view), (CGPoint{20, 30}));  // confirmed: Apple documentation of UITouch
  EXPECT_EQ(touch().locationInView({}), (CGPoint{120, 130}));  // confirmed: nil is the window
  EXPECT_EQ(touch().phase(), UITouchPhaseBegan);
  move({125, 128});
  EXPECT_EQ(touch().locationInView(view), (CGPoint{25, 28}));
  EXPECT_EQ(touch().previousLocationInView(view), (CGPoint{20, 30}));
  EXPECT_EQ(touch().phase(), UITouchPhaseMoved);
  up({125, 128});
  EXPECT_EQ(touch().phase(), UITouchPhaseEnded);
}

TEST_F(KeptTouch, KnowsItsViewWindowTimeAndRecognisers) {
  auto tap = attach<UITapGestureRecognizer>(view, "tap");
  pass(2);
  down({120, 130});
  EXPECT_TRUE(touch().view() == view.get());
  EXPECT_TRUE(touch().window() == window.get());
  EXPECT_EQ(touch().timestamp(), sim::clock::now());
  ASSERT_EQ(touch().gestureRecognizers().count(), 1u);
  EXPECT_TRUE(touch().gestureRecognizers().objectAtIndex(0) == tap.get());
}

TEST_F(KeptTouch, CountsTapsInQuickSuccession) {
  tap({120, 130});
  EXPECT_EQ(touch().tapCount(), 1u);
  pass(0.1);
  tap({121, 130});
  EXPECT_EQ(touch().tapCount(), 2u);  // confirmed: Apple documentation of tapCount
  pass(0.5);
  tap({121, 130});
  EXPECT_EQ(touch().tapCount(), 1u);  // assumed: within 0.35 s
}

TEST_F(KeptTouch, EventHoldsEveryTouch) {
  down({10, 10}, 1);
  down({120, 130}, 2);
  EXPECT_EQ(KeepingClass::state(view.get()).all, 2u);  // confirmed: Apple documentation of allTouches
  EXPECT_EQ(KeepingClass::state(view.get()).ofView, 1u);
}

TEST_F(KeptTouch, FeelsForce) {
  send({{0, UITouchPhaseBegan, {120, 130}, 0.5}});
  EXPECT_EQ(touch().force(), 0.5);
  send({{0, UITouchPhaseMoved, {120, 130}, 3}});
  EXPECT_EQ(touch().force(), 3);  // a touch that only presses harder moves as well: confirmed, UITouch.force
  EXPECT_NEAR(touch().maximumPossibleForce(), 6.667, 0.001);  // assumed: as read on an iPhone 6s
  send({{0, UITouchPhaseMoved, {120, 130}, 50}});
  EXPECT_EQ(touch().force(), touch().maximumPossibleForce());
}

TEST_F(KeptTouch, HasNoForceOnAPlainScreen) {
  auto plain = phone();
  plain.forceTouch = false;
  sim::uikit::configure(plain);
  send({{0, UITouchPhaseBegan, {120, 130}, 3}});
  EXPECT_EQ(touch().force(), 0);  // assumed
  EXPECT_EQ(touch().maximumPossibleForce(), 0);
  EXPECT_TRUE(touch().respondsToSelector(bridge::selector<"force">()));
}

TEST_F(Touch, GoesToTheViewUnderTheFingerUntilItLifts) {
  down({150, 150});
  move({300, 300});
  up({300, 300});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view moved 1", "view ended 1"}));  // confirmed: UIResponder
}

TEST_F(Touch, UnhandledOnesGoUpTheResponderChain) {
  auto child = makeView({{10, 10}, {50, 50}});
  view->addSubview(child);
  down({120, 120});
  move({121, 120});
  up({121, 120});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view moved 1", "view ended 1"}));  // confirmed: UIResponder
}

TEST_F(Touch, SecondFingerIsForViewsThatWantSeveral) {
  down({150, 150}, 1);
  down({160, 160}, 2);
  up({160, 160}, 2);
  EXPECT_EQ(takeLog(), Log{"view began 1"});  // confirmed: multipleTouchEnabled is NO by default
  up({150, 150}, 1);
  takeLog();
  view->multipleTouchEnabled.set(YES);
  down({150, 150}, 1);
  down({160, 160}, 2);
  up({160, 160}, 2);
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view began 1", "view ended 1"}));
}

TEST_F(Touch, FingersThatComeTogetherAreToldTogether) {
  view->multipleTouchEnabled.set(YES);
  send({{1, UITouchPhaseBegan, {150, 150}}, {2, UITouchPhaseBegan, {160, 160}}});
  send({{1, UITouchPhaseEnded, {150, 150}}, {2, UITouchPhaseEnded, {160, 160}}});
  EXPECT_EQ(takeLog(), (Log{"view began 2", "view ended 2"}));  // confirmed: sets of touches
}

TEST_F(Touch, AreCancelledTogether) {
  down({150, 150});
  sim::uikit::cancelFingers();
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view cancelled 1"}));
  up({150, 150});
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(Touch, OfAViewThatLeavesItsWindowIsCancelled) {
  down({150, 150});
  view->removeFromSuperview();
  move({151, 150});
  up({151, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view cancelled 1"}));  // assumed
}

TEST_F(Touch, OutsideEveryWindowIsNobodys) {
  window->hidden.set(YES);
  down({150, 150});
  up({150, 150});
  EXPECT_EQ(takeLog(), Log{});
}

}  // namespace
}  // namespace test
