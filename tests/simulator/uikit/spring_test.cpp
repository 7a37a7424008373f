// Springs in animation blocks.
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

using SpringAnimation = UIKit;

TEST_F(SpringAnimation, PassesItsEndAndComesBack) {
  auto window = makeWindow();
  auto owner = makeView({{0, 0}, {100, 100}});
  const UIView view = owner;
  window->addSubview(view);
  bool completed = false;
  UIView::
      animateWithDuration_delay_usingSpringWithDamping_initialSpringVelocity_options_animations_completion(
          0.5, 0, 0.5, 0, 0, Block<void()>([=] { view.center.set({150, 50}); }),
          Block<void(BOOL)>([&](BOOL finished) { completed = finished; }));
  const double start = sim::clock::now();
  auto reached = [&] { return (shown(view).position.x - 50) / 100; };
  EXPECT_EQ(reached(), 0);
  // confirmed: device-facts 7.5, check values of the spring with ratio 0.5 over half a second
  pass(0.1);
  EXPECT_NEAR(reached(), 1.035, 0.001);
  pass(0.05);
  EXPECT_NEAR(reached(), 1.160, 0.001);
  pass(0.34);
  EXPECT_FALSE(completed);
  EXPECT_NEAR(reached(), 1.001, 0.002);
  pass(0.01);
  EXPECT_TRUE(completed);
  EXPECT_NEAR(sim::clock::now(), start + 0.5, 1e-5);
  EXPECT_EQ(reached(), 1);
}

TEST_F(SpringAnimation, IsInheritedByAnInnerBlock) {
  auto window = makeWindow();
  auto owner = makeView({{0, 0}, {100, 100}});
  const UIView view = owner;
  window->addSubview(view);
  UIView::
      animateWithDuration_delay_usingSpringWithDamping_initialSpringVelocity_options_animations_completion(
          0.5, 0, 0.5, 0, 0, Block<void()>([=] {
            UIView::animateWithDuration_animations(3, Block<void()>([=] { view.center.set({150, 50}); }));
          }),
          {});
  pass(0.15);
  EXPECT_NEAR((shown(view).position.x - 50) / 100, 1.160, 0.001);  // assumed
}

}  // namespace
}  // namespace test
