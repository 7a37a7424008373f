// When views are laid out.
#include <algorithm>

#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class Layout : public UIKit {
 protected:
  static long layouts(RecordingView view) { return std::ranges::count(linesOf(view), "layout"); }
  // How often the view is laid out after `change`, by the next pass.
  template <class Change>
  long layoutsAfter(Change change) {
    sim::uikit::layoutPass();
    linesOf(view).clear();
    change();
    EXPECT_EQ(layouts(view), 0) << "before the pass";
    sim::uikit::layoutPass();
    return layouts(view);
  }

  Strong<UIWindow> window = makeWindow();
  Strong<RecordingView> view = makeRecordingView({{0, 0}, {100, 100}});

  Layout() { window->addSubview(view); }
};

TEST_F(Layout, NewViewIsLaidOutInTheNextPass) {
  sim::uikit::layoutPass();
  EXPECT_EQ(layouts(view), 1);  // confirmed: device-facts 7.4
  sim::uikit::layoutPass();
  EXPECT_EQ(layouts(view), 1);
}

TEST_F(Layout, FollowsAChangeOfSize) {
  EXPECT_EQ(layoutsAfter([&] { view->frame.set({{0, 0}, {50, 50}}); }), 1);  // confirmed: device-facts 7.4
  EXPECT_EQ(layoutsAfter([&] { view->frame.set({{9, 9}, {50, 50}}); }), 0);
  EXPECT_EQ(layoutsAfter([&] { view->center.set({1, 1}); }), 0);
}

TEST_F(Layout, FollowsASubviewsComingAndGoing) {
  auto child = makeView();
  EXPECT_EQ(layoutsAfter([&] { view->addSubview(child); }), 1);       // confirmed: device-facts 7.4
  EXPECT_EQ(layoutsAfter([&] { child->removeFromSuperview(); }), 1);  // assumed
}

TEST_F(Layout, DoesNotFollowATransform) {
  EXPECT_EQ(layoutsAfter([&] { view->transform.set({2, 0, 0, 2, 0, 0}); }),
            0);  // confirmed: device-facts 7.4
}

TEST_F(Layout, IsAskedForOnce) {
  EXPECT_EQ(layoutsAfter([&] {
              view->setNeedsLayout();
              view->setNeedsLayout();
            }),
            1);  // confirmed: Apple documentation of setNeedsLayout
}

TEST_F(Layout, IfNeededHappensAtOnce) {
  sim::uikit::layoutPass();
  linesOf(view).clear();
  view->layoutIfNeeded();
  EXPECT_EQ(layouts(view), 0);
  view->setNeedsLayout();
  view->layoutIfNeeded();
  EXPECT_EQ(layouts(view), 1);  // confirmed: device-facts 7.4
}

TEST_F(Layout, IfNeededReachesWhatIsBelow) {
  auto child = makeRecordingView();
  view->addSubview(child);
  sim::uikit::layoutPass();
  linesOf(child).clear();
  child->setNeedsLayout();
  view->layoutIfNeeded();
  EXPECT_EQ(layouts(child), 1);  // confirmed: Apple documentation of layoutIfNeeded
}

TEST_F(Layout, IfNeededStartsWithTheAncestorsThatWait) {
  auto child = makeRecordingView();
  view->addSubview(child);
  sim::uikit::layoutPass();
  linesOf(view).clear();
  view->setNeedsLayout();
  child->layoutIfNeeded();
  EXPECT_EQ(layouts(view), 1);  // confirmed: Apple documentation of -[CALayer layoutIfNeeded]
}

// A view whose layout asks for its own layout again, for ever.
struct RestlessView : bridge::Face<"TestRestlessView", UIView> {};
void restless(RestlessView self) { self.setNeedsLayout(); }

TEST_F(Layout, EndlessLayoutIsAnError) {
  bridge::Implementation<RestlessView>::define<UIView>(method<&UIView::layoutSubviews, restless>());
  auto endless = make<RestlessView, &UIView::initWithFrame>(CGRect{});
  window->addSubview(endless);
  EXPECT_THROW(sim::uikit::layoutPass(), std::runtime_error);
}

}  // namespace
}  // namespace test
