// The two progress views.
#include <numbers>

#include "tests/library/hud_fixture.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace test {
namespace {

using sim::test::Pixel;
using tilo::RQBarProgressView;
using tilo::RQRoundProgressView;

bool near(const Pixel& pixel, int red, int green, int blue) {
  return std::abs(pixel.red - red) <= 6 && std::abs(pixel.green - green) <= 6 &&
         std::abs(pixel.blue - blue) <= 6;
}
bool isWhite(const Pixel& pixel) { return near(pixel, 255, 255, 255); }
bool isBlack(const Pixel& pixel) { return near(pixel, 0, 0, 0); }
// Of the round view's background, white of a tenth, on black.
bool isFaint(const Pixel& pixel) { return near(pixel, 26, 26, 26); }

void expectColor(UIColor color, CGFloat white, CGFloat alpha) {
  CGFloat red, green, blue, own;
  color.getRed_green_blue_alpha(&red, &green, &blue, &own);
  if (alpha > 0) EXPECT_EQ(red, white);
  if (alpha > 0) EXPECT_EQ(blue, white);
  EXPECT_NEAR(own, alpha, 1e-6);
}

// On black, at (100, 100).
template <class View>
class ProgressView : public testing::Test {
 protected:
  ProgressView() {
    ground->backgroundColor.set(UIColor::blackColor());
    ground->addSubview(view);
    CGRect frame = view->frame();
    frame.origin = {100, 100};
    view->frame.set(frame);
    UIApplication::sharedApplication().keyWindow().addSubview(ground);
  }

  // At a point of the view.
  static Pixel at(CGFloat x, CGFloat y) {
    const sim::Surface screen = sim::uikit::renderScreen(sim::clock::now());
    return sim::test::pixelAt(screen.get(), static_cast<int>((100 + x) * 2), static_cast<int>((100 + y) * 2));
  }

  Home home;
  Strong<UIView> ground =
      bridge::make<UIView, &UIView::initWithFrame>(UIApplication::sharedApplication().keyWindow().bounds());
  Strong<View> view = bridge::adopt<View>(bridge::make<View, &NSObject::init>().leak());
};

class RoundProgressView : public ProgressView<RQRoundProgressView> {
 protected:
  // At a place of a clock face, from the middle of the view.
  static Pixel atHour(double hour, double radius) {
    const double angle = hour / 6 * std::numbers::pi;
    return at(18.5 + radius * std::sin(angle), 18.5 - radius * std::cos(angle));
  }
};

class BarProgressView : public ProgressView<RQBarProgressView> {};

TEST_F(RoundProgressView, BeginsWithItsDefaults) {
  EXPECT_EQ((bridge::make<RQRoundProgressView, &NSObject::init>()->frame()), (CGRect{{0, 0}, {37, 37}}));
  EXPECT_EQ(view->progress(), 0);
  expectColor(view->progressTintColor(), 1, 1);
  expectColor(view->backgroundTintColor(), 1, 0.1f);
  EXPECT_FALSE(view->annular());
  EXPECT_FALSE(view->opaque());
  EXPECT_TRUE(view->backgroundColor() == UIColor::clearColor());
}

TEST_F(RoundProgressView, WithoutProgressIsAnOutlinedDisc) {
  for (const double hour : {0.0, 2.0, 5.0, 9.0}) {
    EXPECT_TRUE(isWhite(atHour(hour, 17.5))) << hour;
    EXPECT_TRUE(isFaint(atHour(hour, 10))) << hour;
    EXPECT_TRUE(isBlack(atHour(hour, 19.5))) << hour;
  }
}

TEST_F(RoundProgressView, HasAnOutlineTwoPointsWide) {
  for (const double radius : {16.8, 17.5, 17.9}) EXPECT_TRUE(isWhite(atHour(3, radius))) << radius;
  for (const double radius : {15.9, 10.0}) EXPECT_TRUE(isFaint(atHour(3, radius))) << radius;
}

TEST_F(RoundProgressView, FillsAPieThatReachesToItsOutlineAndNoFurther) {
  view->progress.set(0.3f);
  for (const double radius : {5.0, 14.0, 16.0}) EXPECT_TRUE(isWhite(atHour(1.5, radius))) << radius;
  EXPECT_TRUE(isBlack(atHour(1.5, 20)));
}

TEST_F(RoundProgressView, FillsAPieClockwiseFromTheTop) {
  view->progress.set(0.3f);  // 3.6 hours
  for (const double hour : {0.3, 2.0, 3.3}) EXPECT_TRUE(isWhite(atHour(hour, 10))) << hour;
  for (const double hour : {3.9, 6.0, 9.0, 11.7}) EXPECT_TRUE(isFaint(atHour(hour, 10))) << hour;
  for (const double hour : {1.0, 7.0}) EXPECT_TRUE(isWhite(atHour(hour, 17.5))) << hour;
}

TEST_F(RoundProgressView, IsFullAtTheEnd) {
  view->progress.set(1);
  for (int hour = 0; hour < 12; ++hour) EXPECT_TRUE(isWhite(atHour(hour, 10))) << hour;
}

TEST_F(RoundProgressView, DrawsNoMoreThanAllAndNoLessThanNothing) {
  view->progress.set(1.4f);
  EXPECT_TRUE(isWhite(atHour(5, 10)));
  view->progress.set(-0.4f);
  EXPECT_TRUE(isFaint(atHour(5, 10)));
  EXPECT_TRUE(isFaint(atHour(11, 10)));
  view->progress.set(std::numeric_limits<float>::quiet_NaN());
  EXPECT_TRUE(isFaint(atHour(5, 10)));
}

TEST_F(RoundProgressView, AsARingWithoutProgressIsFaint) {
  view->annular.set(YES);
  for (int hour = 0; hour < 12; ++hour) EXPECT_TRUE(isFaint(atHour(hour, 16))) << hour;
  EXPECT_TRUE(isBlack(atHour(3, 12.5)));
}

TEST_F(RoundProgressView, AsARingIsFivePointsWide) {
  view->annular.set(YES);
  view->progress.set(1);
  for (const double radius : {14.0, 16.0, 17.7}) EXPECT_TRUE(isWhite(atHour(4, radius))) << radius;
  EXPECT_TRUE(isBlack(atHour(4, 13)));
  EXPECT_TRUE(isBlack(atHour(4, 19)));
}

TEST_F(RoundProgressView, AsARingGoesClockwiseFromTheTop) {
  view->annular.set(YES);
  view->progress.set(0.3f);
  for (const double hour : {0.3, 2.0, 3.3}) EXPECT_TRUE(near(atHour(hour, 16), 255, 255, 255)) << hour;
  for (const double hour : {3.9, 6.0, 9.0, 11.7}) EXPECT_TRUE(isFaint(atHour(hour, 16))) << hour;
}

TEST_F(RoundProgressView, IsDrawnAnewInItsOtherColours) {
  view->progress.set(0.5f);
  EXPECT_TRUE(isWhite(atHour(3, 10)));
  view->progressTintColor.set(UIColor::redColor());
  EXPECT_TRUE(near(atHour(3, 10), 255, 0, 0));
  EXPECT_TRUE(near(atHour(9, 17.5), 255, 0, 0));
  view->backgroundTintColor.set(UIColor::blueColor());
  EXPECT_TRUE(near(atHour(9, 10), 0, 0, 255));
}

TEST_F(BarProgressView, BeginsWithItsDefaults) {
  EXPECT_EQ((bridge::make<RQBarProgressView, &NSObject::init>()->frame()), (CGRect{{0, 0}, {120, 20}}));
  EXPECT_EQ(view->progress(), 0);
  expectColor(view->lineColor(), 1, 1);
  expectColor(view->progressColor(), 1, 1);
  expectColor(view->progressRemainingColor(), 0, 0);
  EXPECT_FALSE(view->opaque());
  EXPECT_TRUE(view->backgroundColor() == UIColor::clearColor());
}

TEST_F(BarProgressView, WithoutProgressIsAnOutlineTwoPointsWide) {
  EXPECT_TRUE(isWhite(at(60, 0.5)));
  EXPECT_TRUE(isWhite(at(60, 1.5)));
  EXPECT_TRUE(isBlack(at(60, 2.5)));
  EXPECT_TRUE(isWhite(at(0.5, 10)));
  EXPECT_TRUE(isWhite(at(119, 10)));
  for (const double x : {6.0, 60.0, 114.0}) EXPECT_TRUE(isBlack(at(x, 10))) << x;
}

TEST_F(BarProgressView, HasRoundEnds) {
  EXPECT_TRUE(isBlack(at(1, 1)));
  EXPECT_TRUE(isBlack(at(118.5, 18.5)));
  EXPECT_TRUE(isBlack(at(2.25, 2.25)));  // half circles, not only round corners
}

TEST_F(BarProgressView, FillsFromTheLeftFourPointsInside) {
  view->progress.set(0.3f);  // of 112 points
  EXPECT_TRUE(isBlack(at(3, 10)));
  EXPECT_TRUE(isWhite(at(5, 10)));
  EXPECT_TRUE(isWhite(at(37, 10)));
  EXPECT_TRUE(isBlack(at(38.5, 10)));
  EXPECT_TRUE(isBlack(at(20, 3)));
  EXPECT_TRUE(isWhite(at(20, 4.5)));
  EXPECT_TRUE(isWhite(at(20, 15)));
  EXPECT_TRUE(isBlack(at(20, 16.5)));
  EXPECT_TRUE(isBlack(at(4.5, 4.5)));  // its own end is round
}

TEST_F(BarProgressView, IsFullAtTheEnd) {
  view->progress.set(1);
  EXPECT_TRUE(isWhite(at(115, 10)));
  EXPECT_TRUE(isBlack(at(117, 10)));
  EXPECT_TRUE(isBlack(at(115, 4.5)));
}

TEST_F(BarProgressView, DrawsNoMoreThanAllAndNoLessThanNothing) {
  view->progress.set(7);
  EXPECT_TRUE(isWhite(at(115, 10)));
  EXPECT_TRUE(isBlack(at(117, 10)));
  view->progress.set(-7);
  EXPECT_TRUE(isBlack(at(20, 10)));
}

TEST_F(BarProgressView, IsDrawnAnewInItsOtherColours) {
  view->progress.set(0.5f);
  EXPECT_TRUE(isWhite(at(20, 10)));
  view->progressColor.set(UIColor::redColor());
  EXPECT_TRUE(near(at(20, 10), 255, 0, 0));
  view->lineColor.set(UIColor::greenColor());
  EXPECT_TRUE(near(at(60, 1), 0, 255, 0));
  view->progressRemainingColor.set(UIColor::blueColor());
  EXPECT_TRUE(near(at(100, 10), 0, 0, 255));
  EXPECT_TRUE(near(at(20, 10), 255, 0, 0));  // which the progress covers
}

}  // namespace
}  // namespace test
