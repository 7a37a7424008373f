// UIActivityIndicatorView.
#include "platform/uikit/activity_indicator.hpp"

#include <cmath>
#include <numbers>

#include "tests/simulator/quartz/pixels.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class ActivityIndicators : public UIKit {
 protected:
  Strong<UIActivityIndicatorView> made(NSInteger style = UIActivityIndicatorViewStyleWhiteLarge) {
    return make<UIActivityIndicatorView, &UIActivityIndicatorView::initWithActivityIndicatorStyle>(style);
  }
};

TEST_F(ActivityIndicators, HaveTheSizeOfTheirStyle) {
  EXPECT_EQ(made(UIActivityIndicatorViewStyleWhiteLarge)->frame(),
            (CGRect{{}, {37, 37}}));                                                      // confirmed: UIKit
  EXPECT_EQ(made(UIActivityIndicatorViewStyleWhite)->frame(), (CGRect{{}, {20, 20}}));    // confirmed: UIKit
  EXPECT_EQ(made(UIActivityIndicatorViewStyleGray)->sizeThatFits({}), (CGSize{20, 20}));  // confirmed: UIKit
}

TEST_F(ActivityIndicators, AreHiddenWhileTheyStandStill) {
  auto indicator = made();
  EXPECT_FALSE(indicator->isAnimating());
  EXPECT_TRUE(indicator->hidden());  // confirmed: documentation of hidesWhenStopped
  indicator->startAnimating();
  EXPECT_TRUE(indicator->isAnimating());
  EXPECT_FALSE(indicator->hidden());
  indicator->stopAnimating();
  EXPECT_FALSE(indicator->isAnimating());
  EXPECT_TRUE(indicator->hidden());
}

TEST_F(ActivityIndicators, MayBeSeenStandingStill) {
  auto indicator = made();
  indicator->hidesWhenStopped.set(NO);
  EXPECT_FALSE(indicator->hidden());  // confirmed: documentation of hidesWhenStopped
  indicator->startAnimating();
  indicator->stopAnimating();
  EXPECT_FALSE(indicator->hidden());
}

// How bright the spoke that points to the hour of a clock face is on the screen.
int brightness(int hour, double now) {
  const double angle = hour * std::numbers::pi / 6, radius = 13.5;
  const sim::Surface screen = sim::uikit::renderScreen(now);
  const CGPoint at{(100 + 18.5 + radius * std::sin(angle)) * 2, (100 + 18.5 - radius * std::cos(angle)) * 2};
  return sim::test::pixelAt(screen.get(), static_cast<int>(at.x), static_cast<int>(at.y)).red;
}

TEST_F(ActivityIndicators, GoRoundOnceASecondInTwelveSteps) {
  auto window = makeWindow();
  auto indicator = made();
  indicator->frame.set({{100, 100}, {37, 37}});
  window->addSubview(indicator);
  indicator->startAnimating();
  EXPECT_GT(brightness(0, 0), 240);  // assumed
  EXPECT_LT(brightness(1, 0), 80);
  pass(0.0834);
  EXPECT_GT(brightness(1, sim::clock::now()), 240);  // assumed
  pass(0.25);
  EXPECT_GT(brightness(4, sim::clock::now()), 240);
  EXPECT_LT(brightness(0, sim::clock::now()), 200);
  pass(1);
  EXPECT_GT(brightness(4, sim::clock::now()), 240);
}

TEST_F(ActivityIndicators, LetTimeRestWhenTheyStop) {
  auto indicator = made();
  indicator->startAnimating();
  EXPECT_TRUE(sim::uikit::nextAnimationEvent());
  indicator->stopAnimating();
  EXPECT_FALSE(sim::uikit::nextAnimationEvent());
  indicator->startAnimating();
  indicator.clear();
  EXPECT_FALSE(sim::uikit::nextAnimationEvent());
}

}  // namespace
}  // namespace test
