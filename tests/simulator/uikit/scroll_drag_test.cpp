// Scroll views under a finger.
#include "platform/uikit/control.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

// A scroll view that counts the messages that move it, and does not handle touches as others do.
struct CountingScrollView : bridge::Face<"TestCountingScrollView", UIScrollView> {};
struct Counts {
  int offsets = 0;
};
using CountingClass = bridge::Implementation<CountingScrollView, Counts>;

struct ScrollListener : bridge::Face<"TestScrollListener", NSObject> {};
CGPoint endVelocity, endTarget;

class ScrollDrag : public Fingers {
 protected:
  ScrollDrag() {
    struct Functions {
      static void setContentOffset(CountingScrollView self, CGPoint offset) {
        ++CountingClass::state(self).offsets;
        CountingClass::super<bridge::setterOf<&UIScrollView::contentOffset>>(self, offset);
      }
      static void ignore(CountingScrollView, NSSet, UIEvent) {}
      static void willBegin(ScrollListener, UIScrollView) { note("will begin dragging"); }
      static void willEnd(ScrollListener, UIScrollView, CGPoint velocity, CGPoint* target) {
        endVelocity = velocity;
        endTarget = *target;
        note("will end dragging");
      }
      static void didEnd(ScrollListener, UIScrollView, BOOL on) { note(on ? "let go" : "put down"); }
      static void begins(ScrollListener, UIScrollView) { note("will begin decelerating"); }
      static void ends(ScrollListener, UIScrollView) { note("did end decelerating"); }
    };
    using F = Functions;
    using D = UIScrollViewDelegate;
    CountingClass::define<UIScrollView>(
        method<bridge::setterOf<&UIScrollView::contentOffset>, F::setContentOffset>(),
        method<&UIResponder::touchesMoved_withEvent, F::ignore>(),
        method<&UIResponder::touchesEnded_withEvent, F::ignore>());
    bridge::Implementation<ScrollListener>::define<NSObject>(
        method<&D::scrollViewWillBeginDragging, F::willBegin>(),
        method<&D::scrollViewWillEndDragging_withVelocity_targetContentOffset, F::willEnd>(),
        method<&D::scrollViewDidEndDragging_willDecelerate, F::didEnd>(),
        method<&D::scrollViewWillBeginDecelerating, F::begins>(),
        method<&D::scrollViewDidEndDecelerating, F::ends>());
    view = make<CountingScrollView, &UIView::initWithFrame>(CGRect{{0, 0}, {300, 500}});
    view->contentSize.set({900, 500});
    window->addSubview(view);
    scrollListener = make<ScrollListener, &NSObject::init>();
    view->delegate.set(scrollListener);
  }

  void flick(CGPoint from, CGPoint to, double seconds) {
    down(from);
    travel(from, to, seconds);
    up(to);
  }
  double offset() { return view->contentOffset().x; }

  Strong<CountingScrollView> view;
  Strong<ScrollListener> scrollListener;
};

TEST_F(ScrollDrag, ContentFollowsTheFinger) {
  view->contentOffset.set({300, 0});
  down({200, 200});
  move({185, 203});
  EXPECT_EQ(offset(), 315);  // assumed: with the first ten points
  EXPECT_EQ(view->contentOffset().y, 0);
  move({120, 250});
  EXPECT_EQ(offset(), 380);
  EXPECT_EQ(view->contentOffset().y, 0);  // it does not scroll that way
  EXPECT_TRUE(view->isDragging());
  EXPECT_TRUE(view->isTracking());
}

TEST_F(ScrollDrag, EveryStepIsAMessage) {
  const int before = CountingClass::state(view.get()).offsets;
  flick({200, 200}, {100, 200}, 0.2);
  EXPECT_GE(CountingClass::state(view.get()).offsets - before, 9);
  const int dragged = CountingClass::state(view.get()).offsets;
  pass(0.1);
  EXPECT_GE(CountingClass::state(view.get()).offsets - dragged, 5);
}

TEST_F(ScrollDrag, DragAcrossIsNotItsOwn) {
  flick({200, 200}, {205, 400}, 0.2);
  EXPECT_EQ(view->contentOffset(), (CGPoint{0, 0}));  // assumed
  EXPECT_EQ(takeLog(), Log{});
}

TEST_F(ScrollDrag, ContentThatFitsStaysUnlessItAlwaysBounces) {
  view->contentSize.set({300, 500});
  down({200, 200});
  move({150, 200});
  EXPECT_EQ(offset(), 0);  // confirmed: alwaysBounceHorizontal is NO by default
  up({150, 200});
  view->alwaysBounceHorizontal.set(YES);
  down({200, 200});
  move({150, 200});
  EXPECT_GT(offset(), 0);
}

TEST_F(ScrollDrag, PullsHarderBeyondTheEdge) {
  down({100, 200});
  move({200, 200});
  EXPECT_NEAR(offset(), -100 * 0.55 * 300 / (0.55 * 100 + 300), 1e-9);  // assumed: factor 0.55
  up({200, 200});
  pass(2);
  EXPECT_EQ(offset(), 0);
  view->bounces.set(NO);
  down({100, 200});
  move({200, 200});
  EXPECT_EQ(offset(), 0);  // confirmed: bounces
}

TEST_F(ScrollDrag, TellsItsDelegate) {
  flick({200, 200}, {100, 200}, 0.2);
  EXPECT_EQ(takeLog(),
            (Log{"will begin dragging", "will end dragging", "let go", "will begin decelerating"}));
  EXPECT_NEAR(endVelocity.x, 0.5, 0.01);  // confirmed: points per millisecond, along the offset
  EXPECT_TRUE(view->isDecelerating());
  pass(5);
  EXPECT_EQ(takeLog(), Log{"did end decelerating"});
  EXPECT_FALSE(view->isDecelerating());
  EXPECT_NEAR(offset(), endTarget.x, 0.6);
  EXPECT_NEAR(offset(), 100 + 500 * 0.4995, 1.5);  // assumed: 0.998 per millisecond
}

TEST_F(ScrollDrag, FingerThatRestsPutsTheContentDown) {
  down({200, 200});
  travel({200, 200}, {100, 200}, 0.2);
  pass(0.3);
  up({100, 200});
  EXPECT_EQ(takeLog(), (Log{"will begin dragging", "will end dragging", "put down"}));
  EXPECT_EQ(offset(), 100);
}

TEST_F(ScrollDrag, PagesTurnByAFlick) {
  view->pagingEnabled.set(YES);
  flick({250, 200}, {150, 200}, 0.15);
  pass(1);
  EXPECT_EQ(offset(), 300);  // confirmed: multiples of the bounds
  flick({250, 200}, {20, 200}, 0.1);
  pass(1);
  EXPECT_EQ(offset(), 600);  // confirmed: the next page however fast
  flick({250, 200}, {150, 200}, 0.15);
  pass(1);
  EXPECT_EQ(offset(), 600);
  flick({150, 200}, {250, 200}, 0.15);
  pass(1);
  EXPECT_EQ(offset(), 300);
}

TEST_F(ScrollDrag, PagesStayAfterASmallPull) {
  view->pagingEnabled.set(YES);
  flick({250, 200}, {200, 200}, 1);
  pass(1);
  EXPECT_EQ(offset(), 0);
  flick({250, 200}, {80, 200}, 2);
  pass(1);
  EXPECT_EQ(offset(), 300);  // more than half of it
}

TEST_F(ScrollDrag, FingerCatchesMovingContent) {
  view->pagingEnabled.set(YES);
  flick({250, 200}, {150, 200}, 0.15);
  pass(0.05);
  down({150, 200});
  const double caught = offset();
  EXPECT_FALSE(view->isDecelerating());
  pass(1);
  EXPECT_EQ(offset(), caught);
  up({150, 200});
  pass(1);
  EXPECT_EQ(offset(), caught > 150 ? 300 : 0);  // assumed: the nearer page
}

TEST_F(ScrollDrag, IsStillWhileDisabled) {
  view->scrollEnabled.set(NO);
  flick({250, 200}, {150, 200}, 0.15);
  EXPECT_EQ(offset(), 0);
  EXPECT_FALSE(view->scrollEnabled());
  view->scrollEnabled.set(YES);
  flick({250, 200}, {150, 200}, 0.15);
  EXPECT_GT(offset(), 0);
}

TEST_F(ScrollDrag, ContentWaitsForItsTouches) {
  auto content = touchView({{0, 0}, {900, 500}}, "content");
  view->addSubview(content);
  down({200, 200});
  pass(0.14);
  EXPECT_EQ(takeLog(), Log{});  // confirmed: delaysContentTouches; assumed: 0.15 s
  pass(0.02);
  EXPECT_EQ(takeLog(), Log{"content began 1"});
  move({180, 200});
  EXPECT_EQ(takeLog(), (Log{"will begin dragging", "content cancelled 1"}));
  up({180, 200});
  takeLog();
  pass(2);
  takeLog();
  tap({200, 200});
  EXPECT_EQ(takeLog(), (Log{"content began 1", "content ended 1"}));
  view->delaysContentTouches.set(NO);
  down({200, 200});
  EXPECT_EQ(takeLog(), Log{"content began 1"});
}

TEST_F(ScrollDrag, FingerThatCatchesIsNotForTheContent) {
  auto content = touchView({{0, 0}, {900, 500}}, "content");
  view->addSubview(content);
  flick({200, 200}, {100, 200}, 0.2);
  pass(0.05);
  takeLog();
  tap({200, 200});
  EXPECT_EQ(takeLog(), Log{});  // assumed
}

TEST_F(ScrollDrag, RecogniserMayComeBeforeTheInitialiser) {
  auto raw = bridge::allocate<UIScrollView>();
  auto swipe = make<UISwipeGestureRecognizer, &NSObject::init>();
  raw->addGestureRecognizer(swipe);
  auto made = bridge::adopt<UIScrollView>(bridge::Descriptor<&NSObject::init>::send(raw.leak()).leak());
  ASSERT_EQ(made->gestureRecognizers().count(), 2u);
  EXPECT_TRUE(made->gestureRecognizers().objectAtIndex(0) == swipe.get());
  EXPECT_TRUE(made->gestureRecognizers().objectAtIndex(1) == made->panGestureRecognizer());
}

TEST_F(ScrollDrag, QuickDragNeverReachesTheContent) {
  auto content = touchView({{0, 0}, {900, 500}}, "content");
  view->addSubview(content);
  flick({200, 200}, {100, 200}, 0.1);
  for (const auto& line : takeLog()) EXPECT_FALSE(line.starts_with("content")) << line;
}

TEST_F(ScrollDrag, ControlsKeepATouchThatTheyHave) {
  auto control = make<UIControl, &UIView::initWithFrame>(CGRect{{100, 100}, {200, 200}});
  view->addSubview(control);
  down({200, 200});
  pass(0.2);
  EXPECT_TRUE(control->isTracking());
  move({150, 200});
  EXPECT_EQ(offset(), 0);  // confirmed: touchesShouldCancelInContentView: is NO for controls
  EXPECT_TRUE(control->isTracking());
}

TEST_F(ScrollDrag, InnerViewScrollsFirst) {
  auto inner = make<UIScrollView, &UIView::initWithFrame>(CGRect{{0, 0}, {300, 500}});
  inner->contentSize.set({300, 1000});
  view->addSubview(inner);
  flick({150, 300}, {150, 200}, 0.2);
  EXPECT_GT(inner->contentOffset().y, 0);
  EXPECT_EQ(offset(), 0);
  pass(3);
  flick({200, 200}, {100, 200}, 0.2);
  EXPECT_GT(offset(), 0);  // a drag along the outer one's axis is the outer one's
}

}  // namespace
}  // namespace test
