// Bezier paths.
#include "platform/uikit/bezier_path.hpp"

#include <cmath>
#include <numbers>

#include "tests/simulator/uikit/canvas.hpp"

namespace test {
namespace {

using BezierPath = Canvas;

constexpr double pi = std::numbers::pi;

TEST_F(BezierPath, RectangleFillsItsRectangle) {
  fillWith(UIColor::redColor());
  const UIBezierPath path = UIBezierPath::bezierPathWithRect({{10, 20}, {30, 40}});
  EXPECT_EQ(path.bounds(), (CGRect{{10, 20}, {30, 40}}));
  path.fill();
  EXPECT_EQ(ink(), 1200);
  EXPECT_EQ(at(10, 20), red);
  EXPECT_EQ(at(39, 59), red);
}

TEST_F(BezierPath, OvalTouchesItsRectangle) {
  const UIBezierPath path = UIBezierPath::bezierPathWithOvalInRect({{10, 20}, {60, 40}});
  const CGRect box = path.bounds();
  EXPECT_NEAR(box.origin.x, 10, 0.02);
  EXPECT_NEAR(box.origin.y, 20, 0.02);
  EXPECT_NEAR(box.size.width, 60, 0.04);
  EXPECT_NEAR(box.size.height, 40, 0.04);
  path.fill();
  EXPECT_NEAR(ink(), pi * 30 * 20, 3);
}

TEST_F(BezierPath, RoundedRectangleLacksItsCorners) {
  const UIBezierPath path = UIBezierPath::bezierPathWithRoundedRect_cornerRadius({{10, 10}, {80, 60}}, 20);
  EXPECT_EQ(path.bounds(), (CGRect{{10, 10}, {80, 60}}));
  path.fill();
  EXPECT_NEAR(ink(), 80 * 60 - (4 - pi) * 400, 5);  // assumed: corners are circular
  EXPECT_EQ(at(11, 11), clear);
  EXPECT_EQ(at(50, 10), black);
}

TEST_F(BezierPath, RoundedRectanglesRadiusGoesUpToHalfItsShorterSide) {
  UIBezierPath::bezierPathWithRoundedRect_cornerRadius({{10, 10}, {80, 40}}, 1000).fill();
  EXPECT_NEAR(ink(), 40 * 40 + pi * 400, 5);
}

TEST_F(BezierPath, RoundedRectangleWithoutARadiusIsARectangle) {
  UIBezierPath::bezierPathWithRoundedRect_cornerRadius({{10, 10}, {80, 40}}, 0).fill();
  EXPECT_EQ(ink(), 3200);
}

TEST_F(BezierPath, ArcsGoClockwiseAsSeen) {
  // confirmed: Apple documentation of addArcWithCenter:
  const auto quarterFrom = [](BOOL clockwise) {
    const UIBezierPath path = UIBezierPath::bezierPath();
    path.moveToPoint({50, 50});
    path.addArcWithCenter_radius_startAngle_endAngle_clockwise({50, 50}, 40, 0, pi / 2, clockwise);
    path.closePath();
    return path;
  };
  quarterFrom(YES).fill();
  EXPECT_NEAR(ink(), pi * 400, 3);
  EXPECT_EQ(at(65, 65), black);
  EXPECT_EQ(at(35, 65), clear);
  const CGRect rest = quarterFrom(NO).bounds();
  EXPECT_NEAR(rest.origin.x, 10, 0.02);
  EXPECT_NEAR(rest.size.height, 80, 0.04);
}

TEST_F(BezierPath, ArcThatGoesRoundIsACircle) {
  const UIBezierPath path = UIBezierPath::bezierPath();
  path.addArcWithCenter_radius_startAngle_endAngle_clockwise({50, 50}, 40, -pi / 2, 3 * pi / 2, YES);
  path.fill();
  EXPECT_NEAR(ink(), pi * 1600, 10);
}

TEST_F(BezierPath, ArcIsJoinedByALine) {
  const UIBezierPath path = UIBezierPath::bezierPath();
  path.moveToPoint({10, 50});
  path.addArcWithCenter_radius_startAngle_endAngle_clockwise({70, 50}, 20, pi, 2 * pi, YES);
  path.stroke();
  EXPECT_GT(at(30, 50).alpha, 100);
  EXPECT_EQ(path.bounds().origin.x, 10);
}

TEST_F(BezierPath, LinesFollowOneAnother) {
  const UIBezierPath path = UIBezierPath::bezierPath();
  path.moveToPoint({20, 20});
  path.addLineToPoint({80, 20});
  path.addLineToPoint({80, 80});
  path.closePath();
  path.fill();
  EXPECT_NEAR(ink(), 1800, 5);
  EXPECT_EQ(at(70, 30), black);
  EXPECT_EQ(at(30, 70), clear);
}

TEST_F(BezierPath, StrokesWithItsOwnWidthAndCaps) {
  EXPECT_EQ(UIBezierPath::bezierPath().lineWidth(), 1);  // confirmed: Apple documentation of lineWidth
  const auto stroke = [](double y, int cap) {
    const UIBezierPath path = UIBezierPath::bezierPath();
    path.moveToPoint({30, y});
    path.addLineToPoint({60, y});
    path.lineWidth.set(10);
    path.setLineCapStyle(cap);
    path.stroke();
  };
  stroke(20, kCGLineCapButt);
  EXPECT_EQ(ink(), 300);
  stroke(50, kCGLineCapRound);
  EXPECT_NEAR(ink(), 600 + pi * 25, 2);
  stroke(80, kCGLineCapSquare);
  EXPECT_NEAR(ink(), 1000 + pi * 25, 2);
}

TEST_F(BezierPath, LeavesTheContextsLineAsItWas) {
  const UIBezierPath thick = UIBezierPath::bezierPathWithRect({{60, 60}, {20, 20}});
  thick.lineWidth.set(8);
  CGContextMoveToPoint(context, 10, 10.5);
  CGContextAddLineToPoint(context, 50, 10.5);
  thick.stroke();
  CGContextDrawPath(context, kCGPathStroke);
  EXPECT_EQ(at(30, 10), black);
  EXPECT_EQ(at(30, 12), clear);
}

TEST_F(BezierPath, ClipsWhatFollows) {
  UIBezierPath::bezierPathWithRect({{10, 10}, {20, 20}}).addClip();
  CGContextFillRect(context, {{0, 0}, {100, 100}});
  EXPECT_EQ(ink(), 400);
}

TEST_F(BezierPath, TakesAnotherPathIn) {
  const UIBezierPath path = UIBezierPath::bezierPathWithRect({{10, 10}, {40, 40}});
  path.appendPath(UIBezierPath::bezierPathWithRect({{20, 20}, {60, 10}}));
  EXPECT_EQ(path.bounds(), (CGRect{{10, 10}, {70, 40}}));
  path.setUsesEvenOddFillRule(YES);
  path.fill();
  EXPECT_EQ(at(30, 25), clear);
  EXPECT_EQ(at(60, 25), black);
  EXPECT_EQ(at(15, 25), black);
}

TEST_F(BezierPath, IsAPathForTheContextToo) {
  CGContextAddPath(context, UIBezierPath::bezierPathWithRect({{10, 10}, {40, 40}}).CGPath());
  CGContextDrawPath(context, kCGPathFill);
  EXPECT_EQ(ink(), 1600);
}

TEST_F(BezierPath, WithNothingInItHasNoBounds) {
  const CGRect bounds = UIBezierPath::bezierPath().bounds();
  EXPECT_TRUE(std::isinf(bounds.origin.x));  // assumed: the null rectangle
  EXPECT_EQ(bounds.size, (CGSize{0, 0}));
}

}  // namespace
}  // namespace test
