// The indicator of a notice box, by mode, and the properties that it follows.
#include "platform/foundation/key_value.hpp"
#include "platform/uikit/activity_indicator.hpp"
#include "tests/library/hud_fixture.hpp"

namespace test {
namespace {

using tilo::RQBarProgressView;
using tilo::RQRoundProgressView;

class ProgressHUDIndicator : public HUD {
 protected:
  // Without the two labels.
  NSUInteger indicators() const { return hud->subviews().count() - 2; }
};

TEST_F(ProgressHUDIndicator, IsALargeWhiteSpinnerThatTurns) {
  ASSERT_EQ(indicators(), 1u);
  auto spinner = part<UIActivityIndicatorView>();
  EXPECT_EQ(spinner.activityIndicatorViewStyle(), UIActivityIndicatorViewStyleWhiteLarge);
  EXPECT_TRUE(spinner.isAnimating());
}

TEST_F(ProgressHUDIndicator, IsAPieWhereProgressIsKnown) {
  hud->mode.set(1);
  ASSERT_EQ(indicators(), 1u);
  EXPECT_FALSE(part<RQRoundProgressView>().annular());
  EXPECT_EQ(part<RQRoundProgressView>().bounds().size, (CGSize{37, 37}));
}

TEST_F(ProgressHUDIndicator, IsABar) {
  hud->mode.set(2);
  ASSERT_EQ(indicators(), 1u);
  EXPECT_EQ(part<RQBarProgressView>().bounds().size, (CGSize{120, 20}));
}

TEST_F(ProgressHUDIndicator, IsARing) {
  hud->mode.set(3);
  ASSERT_EQ(indicators(), 1u);
  EXPECT_TRUE(part<RQRoundProgressView>().annular());
}

TEST_F(ProgressHUDIndicator, IsTheCustomView) {
  auto custom = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{}, {30, 20}});
  hud->customView.set(custom);
  EXPECT_FALSE(custom->superview());
  hud->mode.set(4);
  EXPECT_EQ(indicators(), 1u);
  EXPECT_TRUE(custom->superview() == hud.get());
}

TEST_F(ProgressHUDIndicator, FollowsTheCustomView) {
  hud->mode.set(4);
  EXPECT_EQ(indicators(), 0u);
  auto custom = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{}, {30, 20}});
  hud->customView.set(custom);
  EXPECT_TRUE(custom->superview() == hud.get());
  hud->customView.set({});
  EXPECT_FALSE(custom->superview());
  EXPECT_EQ(indicators(), 0u);
}

TEST_F(ProgressHUDIndicator, IsNothingBesideText) {
  hud->mode.set(5);
  EXPECT_EQ(indicators(), 0u);
}

TEST_F(ProgressHUDIndicator, OfTheRightClassIsKept) {
  hud->mode.set(1);
  auto round = part<RQRoundProgressView>();
  hud->mode.set(3);
  EXPECT_TRUE(part<RQRoundProgressView>() == round);
  EXPECT_TRUE(round.annular());
  hud->mode.set(1);
  EXPECT_TRUE(part<RQRoundProgressView>() == round);
  EXPECT_FALSE(round.annular());
}

TEST_F(ProgressHUDIndicator, OfAnotherClassIsReplaced) {
  for (const NSInteger mode : {1, 2, 3, 0, 2, 0, 5, 0}) {
    hud->mode.set(mode);
    EXPECT_EQ(indicators(), mode == 5 ? 0u : 1u) << mode;
  }
  EXPECT_TRUE(part<UIActivityIndicatorView>().isAnimating());
}

TEST_F(ProgressHUDIndicator, IsGivenTheProgress) {
  for (const NSInteger mode : {1, 2, 3}) {
    hud->mode.set(mode);
    hud->progress.set(0.1f * static_cast<float>(mode));
    UIView indicator = bridge::as<UIView>(hud->subviews().objectAtIndex(2));
    EXPECT_EQ(bridge::as<RQRoundProgressView>(indicator).progress(), hud->progress()) << mode;
  }
}

TEST_F(ProgressHUDIndicator, ThatIsNewShowsTheProgressThereIs) {
  hud->progress.set(0.7f);
  hud->mode.set(2);
  EXPECT_EQ(part<RQBarProgressView>().progress(), 0.7f);
}

TEST_F(ProgressHUDIndicator, WithoutProgressIsLeftAlone) {
  hud->progress.set(0.7f);
  EXPECT_TRUE(part<UIActivityIndicatorView>());
}

TEST_F(ProgressHUDIndicator, StandsBesideLabelsThatFollowTheirKeys) {
  hud->labelText.set("Loading"_ns);
  hud->labelFont.set(UIFont::systemFontOfSize(20));
  hud->labelColor.set(UIColor::redColor());
  hud->detailsLabelText.set("Soon"_ns);
  hud->detailsLabelFont.set(UIFont::systemFontOfSize(8));
  hud->detailsLabelColor.set(UIColor::greenColor());
  EXPECT_STREQ(label(0).text().UTF8String(), "Loading");
  EXPECT_EQ(label(0).font().pointSize(), 20);
  EXPECT_TRUE(label(0).textColor() == UIColor::redColor());
  EXPECT_STREQ(label(1).text().UTF8String(), "Soon");
  EXPECT_EQ(label(1).font().pointSize(), 8);
  EXPECT_TRUE(label(1).textColor() == UIColor::greenColor());
  hud->labelText.set({});
  EXPECT_FALSE(label(0).text());
}

TEST_F(ProgressHUDIndicator, FollowsKeyValueCodingToo) {
  auto coding = bridge::as<NSKeyValueObserving>(hud.get());
  coding.setValue_forKey(NSNumber::numberWithInt(2), "mode"_ns);
  coding.setValue_forKey(NSNumber::numberWithFloat(0.5f), "progress"_ns);
  EXPECT_EQ(part<RQBarProgressView>().progress(), 0.5f);
}

TEST_F(ProgressHUDIndicator, IsLaidOutAnewWithEveryKey) {
  hud->mode.set(5);
  hud->labelText.set("Loading"_ns);
  layOut();
  const CGSize before = label(0).bounds().size;
  hud->labelFont.set(UIFont::boldSystemFontOfSize(32));
  layOut();
  EXPECT_GT(label(0).bounds().size.width, 1.8 * before.width);
}

}  // namespace
}  // namespace test
