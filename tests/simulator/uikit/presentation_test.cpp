// View controllers that are presented over others.
#include "simulator/uikit/base/application.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"
#include "tests/support/raised.hpp"

namespace test {
namespace {

class Presentation : public Fingers {
 protected:
  Presentation() : root(make<UIViewController, &NSObject::init>()) { window->rootViewController.set(root); }

  static void present(UIViewController presenter, UIViewController presented, BOOL animated = NO) {
    presenter.presentViewController_animated_completion(presented, animated, Block<void()>());
    turn();
  }

  Strong<UIViewController> root, first = make<UIViewController, &NSObject::init>(),
                                 second = make<UIViewController, &NSObject::init>(),
                                 third = make<UIViewController, &NSObject::init>();
};

TEST_F(Presentation, FillsTheWindow) {
  present(root, first);
  sim::uikit::layoutPass();
  EXPECT_TRUE(first->view().window() == window);
  EXPECT_EQ(first->view().frame(), window->bounds());  // confirmed: Apple documentation of presentation
}

TEST_F(Presentation, LinksBothControllers) {
  present(root, first);
  EXPECT_TRUE(root->presentedViewController() == first);  // confirmed: Apple documentation
  EXPECT_TRUE(first->presentingViewController() == root);
}

TEST_F(Presentation, KeepsWhatItPresents) {
  {
    const Pool inner;
    present(root, first);
  }
  EXPECT_GT(first->retainCount(), 1u);
  root->dismissViewControllerAnimated_completion(NO, Block<void()>());
  turn();
  EXPECT_FALSE(root->presentedViewController());
  EXPECT_FALSE(first->view().window());
}

TEST_F(Presentation, StacksAndIsTakenDownFromBelow) {
  present(root, first);
  present(first, second);
  present(second, third);
  root->dismissViewControllerAnimated_completion(NO, Block<void()>());
  turn();
  for (const auto& one : {first, second, third}) {
    EXPECT_FALSE(one->view().window());  // confirmed: Apple documentation of dismissViewController
    EXPECT_FALSE(one->presentedViewController());
    EXPECT_FALSE(one->presentingViewController());
  }
}

TEST_F(Presentation, IsTakenDownAlone) {
  present(root, first);
  present(first, second);
  second->dismissViewControllerAnimated_completion(NO, Block<void()>());
  turn();
  EXPECT_FALSE(second->view().window());
  EXPECT_TRUE(first->view().window());  // confirmed: Apple documentation of dismissViewController
}

TEST_F(Presentation, OfOneThatIsPresentedRaises) {
  present(root, first);
  EXPECT_EQ(raisedName([&] { present(first, first); }),
            "NSInvalidArgumentException");  // confirmed: device behaviour, known widely
}

TEST_F(Presentation, IsDismissedInVainWhereThereIsNone) {
  root->dismissViewControllerAnimated_completion(YES, Block<void()>([] { note("gone"); }));
  pass(1);
  EXPECT_EQ(takeLog(), Log{});  // assumed
}

TEST_F(Presentation, IsDismissedOnce) {
  present(root, first);
  for (int i = 0; i < 2; ++i)
    root->dismissViewControllerAnimated_completion(YES, Block<void()>([] { note("gone"); }));
  pass(1);
  EXPECT_EQ(takeLog(), Log{"gone"});  // assumed
}

TEST_F(Presentation, EndsWithItsPresenter) {
  window->rootViewController.set({});
  {
    const Pool inner;
    auto loose = make<UIViewController, &NSObject::init>();
    window->addSubview(loose->view());
    present(loose, first);
    loose->view().removeFromSuperview();
  }
  EXPECT_FALSE(first->view().window());
  EXPECT_FALSE(first->presentingViewController());
}

TEST_F(UIKit, OpensAddressesByWritingThemDown) {
  const auto application = UIApplication::sharedApplication();
  EXPECT_TRUE(application.openURL(NSURL::URLWithString("prefs:root=Tilo"_ns)));  // assumed
  EXPECT_FALSE(application.openURL({}));                                         // assumed
  EXPECT_EQ(sim::uikit::openedURLs().back(), "prefs:root=Tilo");
}

}  // namespace
}  // namespace test
