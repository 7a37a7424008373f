// Which recogniser gets its gesture, and what becomes of the touches.
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

class Arbiter : public Fingers {
 protected:
  Strong<TouchView> view = touchView({{100, 100}, {200, 200}}, "view");
  CGPoint inside{150, 150};

  Log drag() {
    down(inside);
    travel(inside, {250, 150}, 0.2);
    up({250, 150});
    return takeLog();
  }
  static Log only(const Log& log, const std::string& start) {
    Log found;
    for (const auto& line : log)
      if (line.starts_with(start)) found.push_back(line);
    return found;
  }
};

TEST_F(Arbiter, DeeperViewWinsATie) {
  attach<UITapGestureRecognizer>(window, "outer");
  attach<UITapGestureRecognizer>(view, "inner");
  tap(inside);
  // confirmed: UIKit, "deeper view's recognisers win"
  EXPECT_EQ(takeLog(), (Log{"view began 1", "inner ended", "view cancelled 1"}));
}

TEST_F(Arbiter, FirstToBeginExcludesTheOthers) {
  auto swipe = attach<UISwipeGestureRecognizer>(view, "swipe");
  attach<UIPanGestureRecognizer>(view, "pan");
  const Log log = drag();
  EXPECT_EQ(only(log, "pan").front(), "pan began");
  EXPECT_EQ(only(log, "swipe"), Log{});  // confirmed: no simultaneous recognition by default
  EXPECT_EQ(swipe->state(), UIGestureRecognizerStatePossible);
}

TEST_F(Arbiter, DelegateOfEitherMayLetBothRun) {
  auto swipe = attach<UISwipeGestureRecognizer>(view, "swipe");
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  happenings().simultaneous = [](auto, auto) { return true; };
  for (const UIGestureRecognizer asked : {UIGestureRecognizer(swipe.get()), UIGestureRecognizer(pan.get())}) {
    asked.delegate.set(listener);
    const Log log = drag();
    EXPECT_EQ(only(log, "pan").back(), "pan ended");
    EXPECT_EQ(only(log, "swipe"), Log{"swipe ended"});  // confirmed: YES of either is enough
    asked.delegate.set({});
  }
}

TEST_F(Arbiter, DelegateMayRefuseATouch) {
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  pan->delegate.set(listener);
  happenings().shouldReceive = [this](auto, UITouch touch) { return touch.locationInView(view).x > 60; };
  EXPECT_EQ(only(drag(), "pan"), Log{});  // confirmed: gestureRecognizer:shouldReceiveTouch:
  inside = {170, 150};
  EXPECT_EQ(only(drag(), "pan").front(), "pan began");
}

TEST_F(Arbiter, DelegateMayForbidTheBeginning) {
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  pan->delegate.set(listener);
  int asked = 0;
  happenings().shouldBegin = [&](auto) { return ++asked > 1; };
  const Log log = drag();
  EXPECT_EQ(only(log, "pan"), Log{});  // confirmed: it fails
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(log.back(), "view ended 1");
  EXPECT_EQ(only(drag(), "pan").front(), "pan began");
}

TEST_F(Arbiter, AsksOnlyWhatTheDelegateAnswers) {
  auto silent = make<SilentDelegate, &NSObject::init>();
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  attach<UISwipeGestureRecognizer>(view, "swipe")->delegate.set(silent);
  pan->delegate.set(silent);
  EXPECT_EQ(only(drag(), "pan").front(), "pan began");
}

TEST_F(Arbiter, AsksInTheDocumentedOrder) {
  attach<UISwipeGestureRecognizer>(view, "swipe");
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  pan->delegate.set(listener);
  Log asked;
  happenings().shouldReceive = [&](auto, auto) { return asked.push_back("receive"), true; };
  happenings().shouldBegin = [&](auto) { return asked.push_back("begin"), true; };
  happenings().shouldRequire = [&](auto, auto) { return asked.push_back("require"), false; };
  happenings().simultaneous = [&](auto, auto) { return asked.push_back("simultaneous"), false; };
  drag();
  ASSERT_GE(asked.size(), 4u);
  EXPECT_EQ(asked[0], "receive");  // confirmed: UIKit headers
  EXPECT_EQ(asked[1], "begin");
  EXPECT_EQ(asked[2], "require");
  EXPECT_EQ(asked.back(), "simultaneous");
}

TEST_F(Arbiter, SingleTapDoesNotWaitByItself) {
  attach<UITapGestureRecognizer>(view, "single");
  attach<UITapGestureRecognizer>(view, "double")->numberOfTapsRequired.set(2);
  tap(inside);
  EXPECT_EQ(only(takeLog(), "single"), Log{"single ended"});  // confirmed: only if it is required to
  pass(0.1);
  tap(inside);
  EXPECT_EQ(only(takeLog(), "double"), Log{"double ended"});
}

class RequiringArbiter : public Arbiter, public testing::WithParamInterface<int> {
 protected:
  Strong<UITapGestureRecognizer> single = attach<UITapGestureRecognizer>(view, "single");
  Strong<UITapGestureRecognizer> twice = attach<UITapGestureRecognizer>(view, "double");

  // Three ways to ask for the same.
  RequiringArbiter() {
    twice->numberOfTapsRequired.set(2);
    single->delegate.set(listener);
    twice->delegate.set(listener);
    if (GetParam() == 0) single->requireGestureRecognizerToFail(twice);
    if (GetParam() == 1) happenings().shouldRequire = [this](auto one, auto) { return one == single.get(); };
    if (GetParam() == 2)
      happenings().shouldBeRequired = [this](auto one, auto) { return one == twice.get(); };
  }
};

TEST_P(RequiringArbiter, WaitsForTheOtherToFail) {
  tap(inside);
  EXPECT_EQ(only(takeLog(), "single"), Log{});  // confirmed: requireGestureRecognizerToFail:
  pass(0.34);
  EXPECT_EQ(takeLog(), Log{});
  pass(0.02);
  EXPECT_EQ(takeLog(), (Log{"single ended", "view cancelled 1"}));
}

TEST_P(RequiringArbiter, FailsWhenTheOtherDoesNot) {
  tap(inside);
  pass(0.1);
  tap(inside);
  pass(1);
  const Log log = takeLog();
  EXPECT_EQ(only(log, "single"), Log{});
  EXPECT_EQ(only(log, "double"), Log{"double ended"});
}

INSTANTIATE_TEST_SUITE_P(ByMessageAndDelegates, RequiringArbiter, testing::Values(0, 1, 2));

TEST_F(Arbiter, PanWaitsForASwipeToFail) {
  auto swipe = attach<UISwipeGestureRecognizer>(view, "swipe");
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  pan->requireGestureRecognizerToFail(swipe);
  EXPECT_EQ(only(drag(), "pan"), Log{});  // a swipe
  down(inside);
  travel(inside, {190, 150}, 0.4);
  EXPECT_EQ(only(takeLog(), "pan"), Log{});
  travel({190, 150}, {210, 150}, 0.2);  // too slow for a swipe
  up({210, 150});
  EXPECT_EQ(only(takeLog(), "pan").front(), "pan began");
}

TEST_F(Arbiter, CancelsTouchesInTheView) {
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  down(inside);
  move({152, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view moved 1"}));
  move({165, 150});
  EXPECT_EQ(takeLog(), (Log{"pan began", "view cancelled 1"}));  // confirmed: cancelsTouchesInView
  move({170, 150});
  up({170, 150});
  EXPECT_EQ(takeLog(), (Log{"pan changed", "pan ended"}));
  pan->cancelsTouchesInView.set(NO);
  down(inside);
  move({165, 150});
  up({165, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "pan began", "view moved 1", "pan ended", "view ended 1"}));
}

TEST_F(Arbiter, MayDelayTheBeginning) {
  auto pan = attach<UIPanGestureRecognizer>(view, "pan");
  pan->delaysTouchesBegan.set(YES);
  down(inside);
  move({152, 150});
  EXPECT_EQ(takeLog(), Log{});  // confirmed: delaysTouchesBegan
  up({152, 150});
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view ended 1"}));
  down(inside);
  move({170, 150});
  up({170, 150});
  EXPECT_EQ(takeLog(), (Log{"pan began", "pan ended"}));
}

TEST_F(Arbiter, DelaysTheEndUntilItIsClear) {
  auto twice = attach<UITapGestureRecognizer>(view, "double");
  twice->numberOfTapsRequired.set(2);
  tap(inside);
  EXPECT_EQ(takeLog(), Log{"view began 1"});  // confirmed: delaysTouchesEnded
  pass(0.4);
  EXPECT_EQ(takeLog(), Log{"view ended 1"});
  twice->delaysTouchesEnded.set(NO);
  tap(inside);
  EXPECT_EQ(takeLog(), (Log{"view began 1", "view ended 1"}));
}

TEST_F(Arbiter, FingersOnDifferentViewsDoNotMeet) {
  auto other = touchView({{100, 400}, {200, 200}}, "other");
  attach<UIPanGestureRecognizer>(view, "one");
  attach<UIPanGestureRecognizer>(other, "two");
  down({150, 150}, 1);
  down({150, 450}, 2);
  move({180, 150}, 1);
  move({180, 450}, 2);
  const Log log = takeLog();
  EXPECT_EQ(only(log, "one"), Log{"one began"});
  EXPECT_EQ(only(log, "two"), Log{"two began"});
}

}  // namespace
}  // namespace test
