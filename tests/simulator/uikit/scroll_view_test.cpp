// Scroll views.
#include "platform/uikit/scroll_view.hpp"

#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class ScrollView : public UIKit {
 protected:
  Strong<UIWindow> window = makeWindow();
  Strong<UIScrollView> view = make<UIScrollView, &UIView::initWithFrame>(CGRect{{0, 0}, {100, 200}});

  ScrollView() { window->addSubview(view); }
};

TEST_F(ScrollView, OffsetIsWhereTheBoundsBegin) {
  view->contentOffset.set({30, 40});
  EXPECT_EQ(view->bounds(),
            (CGRect{{30, 40}, {100, 200}}));  // confirmed: Apple documentation of UIScrollView
  EXPECT_EQ(view->frame(), (CGRect{{0, 0}, {100, 200}}));
  view->bounds.set({{1, 2}, {100, 200}});
  EXPECT_EQ(view->contentOffset(), (CGPoint{1, 2}));
}

TEST_F(ScrollView, PropertiesReadBack) {
  EXPECT_TRUE(view->clipsToBounds());  // assumed
  EXPECT_FALSE(view->pagingEnabled());
  view->pagingEnabled.set(YES);
  view->contentSize.set({300, 200});
  view->contentInset.set({1, 2, 3, 4});
  EXPECT_TRUE(view->pagingEnabled());
  EXPECT_EQ(view->contentSize(), (CGSize{300, 200}));
  EXPECT_EQ(view->contentInset(), (UIEdgeInsets{1, 2, 3, 4}));
}

TEST_F(ScrollView, FrameKeepsTheOffset) {
  view->contentOffset.set({30, 40});
  view->frame.set({{10, 10}, {50, 50}});
  EXPECT_EQ(view->contentOffset(), (CGPoint{30, 40}));  // assumed
}

TEST_F(ScrollView, AnimatedOffsetMovesFrameByFrame) {
  view->setContentOffset_animated({100, 0}, YES);
  EXPECT_EQ(view->contentOffset().x, 0);  // assumed
  pass(0.15);
  EXPECT_NEAR(view->contentOffset().x, 50, 1);  // assumed: ease-in-out over 0.3 s
  pass(0.2);
  EXPECT_EQ(view->contentOffset().x, 100);
  EXPECT_EQ(sim::uikit::nextAnimationEvent(), std::nullopt);
}

TEST_F(ScrollView, PlainOffsetEndsAnAnimatedOne) {
  view->setContentOffset_animated({100, 0}, YES);
  pass(0.1);
  view->setContentOffset_animated({7, 0}, NO);
  pass(1);
  EXPECT_EQ(view->contentOffset().x, 7);
}

TEST_F(ScrollView, MayDieWhileItMoves) {
  view->setContentOffset_animated({100, 0}, YES);
  pass(0.1);
  view->removeFromSuperview();
  view.clear();
  EXPECT_EQ(sim::uikit::nextAnimationEvent(), std::nullopt);
}

TEST_F(ScrollView, MoveInABlockIsAnimated) {
  const UIScrollView scrolled = view;
  UIView::animateWithDuration_animations(1, Block<void()>([=] { scrolled.contentOffset.set({100, 0}); }));
  EXPECT_EQ(view->contentOffset().x, 100);
  pass(0.5);
  EXPECT_NEAR(shown(view).bounds.origin.x, 50, 0.1);  // confirmed: bounds are animatable
}

}  // namespace
}  // namespace test
