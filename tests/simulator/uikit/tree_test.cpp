// Superviews, subviews and what they are told.
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

using Tree = UIKit;

bridge::Object at(NSArray array, NSUInteger index) { return array.objectAtIndex(index); }

TEST_F(Tree, LastSubviewIsInFront) {
  auto parent = makeView(), one = makeView(), two = makeView(), three = makeView();
  parent->addSubview(one);
  parent->addSubview(two);
  parent->insertSubview_atIndex(three, 0);
  const NSArray subviews = parent->subviews();  // confirmed: Apple documentation of subviews
  ASSERT_EQ(subviews.count(), 3u);
  EXPECT_TRUE(at(subviews, 0) == three.get());
  EXPECT_TRUE(at(subviews, 1) == one.get());
  EXPECT_TRUE(at(subviews, 2) == two.get());
}

TEST_F(Tree, LayersStandInTheSameOrder) {
  auto parent = makeView(), one = makeView(), two = makeView(), three = makeView();
  parent->addSubview(one);
  parent->addSubview(two);
  parent->insertSubview_atIndex(three, 1);
  parent->bringSubviewToFront(one);
  const auto layers = sim::uikit::layerOf(parent.get()).children();
  ASSERT_EQ(layers.size(), 3u);
  EXPECT_EQ(layers[0], &sim::uikit::layerOf(three.get()));
  EXPECT_EQ(layers[1], &sim::uikit::layerOf(two.get()));
  EXPECT_EQ(layers[2], &sim::uikit::layerOf(one.get()));
  parent->sendSubviewToBack(one);
  EXPECT_EQ(parent->subviews().objectAtIndex(0), one.get());
}

TEST_F(Tree, IndexBeyondTheEndMeansInFront) {
  auto parent = makeView(), one = makeView(), two = makeView();
  parent->addSubview(one);
  parent->insertSubview_atIndex(two, 99);
  EXPECT_TRUE(at(parent->subviews(), 1) == two.get());  // assumed
}

TEST_F(Tree, ViewHasOneSuperview) {
  auto first = makeView(), second = makeView(), child = makeView();
  first->addSubview(child);
  second->addSubview(child);
  EXPECT_EQ(first->subviews().count(), 0u);  // confirmed: device-facts 7.4
  EXPECT_TRUE(child->superview() == second);
  EXPECT_TRUE(child->isDescendantOfView(second));
  EXPECT_TRUE(child->isDescendantOfView(child));  // confirmed: Apple documentation of isDescendantOfView:
  EXPECT_FALSE(child->isDescendantOfView(first));
}

TEST_F(Tree, SuperviewAloneKeepsAView) {
  auto parent = makeView(), child = makeView();
  EXPECT_EQ(child->retainCount(), 1u);
  parent->addSubview(child);
  EXPECT_EQ(child->retainCount(), 2u);  // confirmed: device-facts 7.4
  EXPECT_EQ(parent->retainCount(), 1u);
  parent->bringSubviewToFront(child);
  EXPECT_EQ(child->retainCount(), 2u);
  child->removeFromSuperview();
  EXPECT_EQ(child->retainCount(), 1u);
}

TEST_F(Tree, ViewIsToldOfItsMoves) {
  auto window = makeWindow();
  auto view = makeRecordingView();
  linesOf(view).clear();
  window->addSubview(view);
  EXPECT_EQ(linesOf(view),
            (std::vector<std::string>{"will move to superview", "will move to window", "did move to window",
                                      "did move to superview"}));  // confirmed: device-facts 7.4
  linesOf(view).clear();
  view->removeFromSuperview();
  EXPECT_EQ(linesOf(view), (std::vector<std::string>{"will leave superview", "will leave window",
                                                     "did move to window", "did move to superview"}));
}

TEST_F(Tree, SuperviewIsToldOfItsSubviews) {
  auto parent = makeRecordingView();
  auto child = makeView();
  linesOf(parent).clear();
  parent->addSubview(child);
  child->removeFromSuperview();
  EXPECT_EQ(linesOf(parent), (std::vector<std::string>{"did add subview", "will remove subview"}));
}

TEST_F(Tree, WholeSubtreeMovesToTheWindow) {
  auto window = makeWindow();
  auto parent = makeView();
  auto child = makeRecordingView();
  parent->addSubview(child);
  EXPECT_FALSE(child->window());
  linesOf(child).clear();
  window->addSubview(parent);
  EXPECT_TRUE(child->window() == window);
  EXPECT_EQ(linesOf(child), (std::vector<std::string>{"will move to window", "did move to window"}));
}

TEST_F(Tree, AddingASubviewAgainOnlyBringsItToTheFront) {
  auto parent = makeView();
  auto one = makeRecordingView();
  auto two = makeView();
  parent->addSubview(one);
  parent->addSubview(two);
  linesOf(one).clear();
  parent->addSubview(one);
  EXPECT_TRUE(at(parent->subviews(), 1) == one.get());
  EXPECT_TRUE(linesOf(one).empty());  // assumed
}

TEST_F(Tree, ViewCannotBeItsOwnSubview) {
  auto parent = makeView(), child = makeView();
  parent->addSubview(child);
  EXPECT_ANY_THROW(parent->addSubview(parent));  // confirmed: UIKit raises NSInvalidArgumentException
  EXPECT_ANY_THROW(child->addSubview(parent));   // assumed
  EXPECT_EQ(parent->subviews().count(), 1u);
}

TEST_F(Tree, NoViewIsAddedForNil) {
  auto parent = makeView();
  parent->addSubview({});
  EXPECT_EQ(parent->subviews().count(), 0u);  // assumed
}

TEST_F(Tree, TagsAreFoundInTheWholeTree) {
  auto parent = makeView(), child = makeView(), grandchild = makeView();
  parent->addSubview(child);
  child->addSubview(grandchild);
  grandchild->tag.set(7);
  EXPECT_TRUE(parent->viewWithTag(7) == grandchild.get());  // confirmed: Apple documentation of viewWithTag:
  EXPECT_FALSE(parent->viewWithTag(8));
  EXPECT_TRUE(parent->viewWithTag(0) == parent.get());
}

TEST_F(Tree, RespondersFollowTheTree) {
  auto window = makeWindow();
  auto controller = make<UIViewController, &NSObject::init>();
  auto child = makeView();
  window->rootViewController.set(controller);
  controller->view().addSubview(child);
  EXPECT_TRUE(child->nextResponder() == controller->view());  // confirmed: device-facts 7.4
  EXPECT_TRUE(controller->view().nextResponder() == controller.get());
  EXPECT_TRUE(controller->nextResponder() == window.get());
  EXPECT_TRUE(window->nextResponder() == UIApplication::sharedApplication());
  EXPECT_FALSE(UIApplication::sharedApplication().nextResponder());
}

}  // namespace
}  // namespace test
