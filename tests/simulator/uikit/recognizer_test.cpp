// Recognisers and their views, targets and properties.
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

class Recognizer : public Fingers {
 protected:
  Strong<TouchView> view = touchView({{100, 100}, {200, 200}}, "view");
};

TEST_F(Recognizer, HasTheDocumentedDefaults) {
  auto recognizer = make<UIGestureRecognizer, &NSObject::init>();
  EXPECT_TRUE(recognizer->enabled());  // confirmed: Apple documentation of UIGestureRecognizer, all five
  EXPECT_TRUE(recognizer->cancelsTouchesInView());
  EXPECT_FALSE(recognizer->delaysTouchesBegan());
  EXPECT_TRUE(recognizer->delaysTouchesEnded());
  EXPECT_EQ(recognizer->state(), UIGestureRecognizerStatePossible);
  EXPECT_FALSE(recognizer->view());
  EXPECT_EQ((make<UISwipeGestureRecognizer, &NSObject::init>()->direction()),
            UISwipeGestureRecognizerDirectionRight);
  EXPECT_EQ((make<UILongPressGestureRecognizer, &NSObject::init>()->minimumPressDuration()), 0.5);
  EXPECT_EQ((make<UILongPressGestureRecognizer, &NSObject::init>()->allowableMovement()), 10);
}

TEST_F(Recognizer, BelongsToOneViewAtATime) {
  auto tap = attach<UITapGestureRecognizer>(view, "tap");
  EXPECT_TRUE(tap->view() == UIView(view.get()));
  window->addGestureRecognizer(tap);
  EXPECT_TRUE(tap->view() == UIView(window.get()));  // confirmed: addGestureRecognizer: moves it
  EXPECT_EQ(view->gestureRecognizers().count(), 0u);
  window->removeGestureRecognizer(tap);
  EXPECT_FALSE(tap->view());
}

TEST_F(Recognizer, ComesBeforeTheInitialiser) {
  auto raw = bridge::allocate<UIView>();
  auto tap = make<UITapGestureRecognizer, &NSObject::init>();
  raw->addGestureRecognizer(tap);
  auto made = bridge::adopt<UIView>(bridge::Descriptor<&NSObject::init>::send(raw.leak()).leak());
  ASSERT_EQ(made->gestureRecognizers().count(), 1u);
  EXPECT_TRUE(made->gestureRecognizers().objectAtIndex(0) == tap.get());
  EXPECT_TRUE(tap->view() == made.get());
}

TEST_F(Recognizer, OutlivesItsView) {
  auto tap = make<UITapGestureRecognizer, &NSObject::init>();
  {
    Pool inner;
    auto short_lived = makeView();
    short_lived->addGestureRecognizer(tap);
  }
  EXPECT_FALSE(tap->view());
}

TEST_F(Recognizer, SendsItsActionsInOrder) {
  auto tap = attach<UITapGestureRecognizer>(view, "tap");
  tap->addTarget_action(listener, bridge::Descriptor<&Listener::fired>::selector());
  Fingers::tap({150, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "tap ended", "tap ended", "view cancelled 1"}));  // assumed
  tap->removeTarget_action(listener, nullptr);
  Fingers::tap({150, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view cancelled 1"}));
}

TEST_F(Recognizer, ForgetsATargetThatDied) {
  auto tap = attach<UITapGestureRecognizer>(view, "tap");
  listener.clear();
  Fingers::tap({150, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view cancelled 1"}));
}

TEST_F(Recognizer, IsLeftOutWhileDisabled) {
  auto tap = attach<UITapGestureRecognizer>(view, "tap");
  tap->enabled.set(NO);
  Fingers::tap({150, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view ended 1"}));  // confirmed: enabled
  tap->enabled.set(YES);
  Fingers::tap({150, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "tap ended", "view cancelled 1"}));
}

TEST_F(Recognizer, IsCancelledWhenDisabledOnTheWay) {
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  down({150, 150});
  move({180, 150});
  takeLog();
  pan->enabled.set(NO);
  EXPECT_EQ(takeLog(), Log{"pan cancelled"});  // confirmed: Apple documentation of enabled
  EXPECT_EQ(pan->state(), UIGestureRecognizerStatePossible);
  pan->enabled.set(YES);
  move({200, 150});
  up({200, 150});
  EXPECT_EQ(takeLog(), Log{});  // the rest of the touch is not its own
}

TEST_F(Recognizer, IsCancelledWhenTakenFromItsView) {
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  down({150, 150});
  move({180, 150});
  takeLog();
  view->removeGestureRecognizer(pan);
  EXPECT_EQ(takeLog(), Log{"pan cancelled"});  // assumed
}

TEST_F(Recognizer, RefusesAWayThatThereIsNot) {
  auto tap = attach<UITapGestureRecognizer>(view, "tap");
  EXPECT_ANY_THROW(tap->state.set(UIGestureRecognizerStateChanged));
  EXPECT_EQ(tap->state(), UIGestureRecognizerStatePossible);
}

TEST_F(Recognizer, PlainOneRecognisesNothingAndKeepsNothing) {
  attach<UIGestureRecognizer>(view, "plain");
  Fingers::tap({150, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view ended 1"}));  // assumed
}

TEST_F(Recognizer, HearsOfTouchesInViewsBelowItsOwn) {
  auto child = makeView({{10, 10}, {50, 50}});
  view->addSubview(child);
  attach<UITapGestureRecognizer>(view, "tap");
  Fingers::tap({120, 120});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "tap ended", "view cancelled 1"}));  // confirmed: UIKit, hit test
}

}  // namespace
}  // namespace test
