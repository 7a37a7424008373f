// Drawing with CoreGraphics: shapes, state, clips, shadows and gradients.
#include <numbers>

#include "tests/simulator/uikit/canvas.hpp"

namespace test {
namespace {

using Drawing = Canvas;

constexpr double pi = std::numbers::pi;

TEST_F(Drawing, StartsBlackWithALineOfOnePoint) {
  // confirmed: the documented defaults of a graphics state
  CGContextFillRect(context, {{10, 10}, {20, 20}});
  EXPECT_EQ(at(15, 15), black);
  EXPECT_EQ(at(31, 15), clear);
  CGContextMoveToPoint(context, 50, 50.5);
  CGContextAddLineToPoint(context, 60, 50.5);
  CGContextDrawPath(context, kCGPathStroke);
  EXPECT_EQ(at(55, 50), black);
  EXPECT_EQ(at(55, 49), clear);
  EXPECT_EQ(at(55, 51), clear);
}

TEST_F(Drawing, FillsAndStrokesWithTheirColors) {
  fillWith(UIColor::redColor());
  strokeWith(UIColor::blueColor());
  CGContextSetLineWidth(context, 4);
  CGContextAddRect(context, {{20, 20}, {40, 40}});
  CGContextDrawPath(context, kCGPathFillStroke);
  EXPECT_EQ(at(40, 40), red);
  EXPECT_EQ(at(19, 40), blue);
  EXPECT_EQ(at(21, 40), blue);
  EXPECT_EQ(at(17, 40), clear);
}

TEST_F(Drawing, ForgetsThePathThatItDrew) {
  CGContextAddRect(context, {{20, 20}, {10, 10}});
  CGContextDrawPath(context, kCGPathFill);
  fillWith(UIColor::redColor());
  CGContextAddRect(context, {{50, 20}, {10, 10}});
  CGContextDrawPath(context, kCGPathFill);
  EXPECT_EQ(at(25, 25), black);  // confirmed: Apple documentation of CGContextDrawPath
  EXPECT_EQ(at(55, 25), red);
}

TEST_F(Drawing, BeginsWithoutWhatWasInThePath) {
  CGContextAddRect(context, {{20, 20}, {10, 10}});
  CGContextBeginPath(context);
  CGContextAddRect(context, {{50, 20}, {10, 10}});
  CGContextDrawPath(context, kCGPathFill);
  EXPECT_EQ(at(25, 25), clear);
  EXPECT_EQ(at(55, 25), black);
}

TEST_F(Drawing, EvenOddRuleLeavesHoles) {
  const auto drawTwice = [&](double left, int mode) {
    CGContextAddRect(context, {{left, 10}, {30, 30}});
    CGContextAddRect(context, {{left + 10, 20}, {10, 10}});
    CGContextDrawPath(context, mode);
  };
  drawTwice(0, kCGPathFill);
  drawTwice(50, kCGPathEOFill);
  EXPECT_EQ(at(15, 25), black);
  EXPECT_EQ(at(65, 25), clear);
  EXPECT_EQ(at(55, 25), black);
}

TEST_F(Drawing, RestoresWhatItSaved) {
  fillWith(UIColor::redColor());
  CGContextSaveGState(context);
  fillWith(UIColor::blueColor());
  CGContextAddRect(context, {{0, 0}, {50, 100}});
  CGContextClip(context);
  CGContextFillRect(context, {{0, 0}, {100, 100}});
  CGContextRestoreGState(context);
  EXPECT_EQ(at(20, 20), blue);
  EXPECT_EQ(at(70, 20), clear);
  CGContextFillRect(context, {{0, 0}, {100, 100}});
  EXPECT_EQ(at(70, 20), red);
}

TEST_F(Drawing, RestoringWithoutSavingDoesNothing) {
  fillWith(UIColor::redColor());
  CGContextRestoreGState(context);
  CGContextFillRect(context, {{0, 0}, {10, 10}});
  EXPECT_EQ(at(5, 5), red);
}

TEST_F(Drawing, EvenOddClipLeavesTheHoleOut) {
  CGContextAddRect(context, {{0, 0}, {100, 100}});
  CGContextAddRect(context, {{40, 40}, {20, 20}});
  CGContextEOClip(context);
  CGContextFillRect(context, {{0, 0}, {100, 100}});
  EXPECT_EQ(at(10, 10), black);
  EXPECT_EQ(at(50, 50), clear);
}

TEST_F(Drawing, ArcsRiseUnlessTheyAreClockwise) {
  // confirmed: "clockwise" of CGContextAddArc is seen from below the flipped coordinates of UIKit
  CGContextAddArc(context, 50, 50, 40, 0, pi / 2, 0);
  CGContextAddLineToPoint(context, 50, 50);
  CGContextDrawPath(context, kCGPathFill);
  EXPECT_EQ(at(65, 65), black);
  EXPECT_EQ(at(35, 35), clear);
  CGContextAddArc(context, 50, 50, 40, 0, pi / 2, 1);
  CGContextAddLineToPoint(context, 50, 50);
  CGContextDrawPath(context, kCGPathFill);
  EXPECT_EQ(at(35, 35), black);
}

TEST_F(Drawing, EllipsesTouchTheirRectangle) {
  CGContextFillEllipseInRect(context, {{10, 30}, {80, 40}});
  EXPECT_NEAR(ink(), pi * 40 * 20, 5);
  EXPECT_EQ(at(50, 31), black);
  EXPECT_EQ(at(12, 32), clear);
  const auto box = sim::test::inkBounds(image.get());
  EXPECT_EQ(box.left, 10);
  EXPECT_EQ(box.right, 89);
  EXPECT_EQ(box.top, 30);
  EXPECT_EQ(box.bottom, 69);
}

TEST_F(Drawing, StrokedEllipseIsARing) {
  CGContextSetLineWidth(context, 2);
  CGContextStrokeEllipseInRect(context, {{10, 10}, {80, 80}});
  EXPECT_NEAR(ink(), 2 * pi * 40 * 2, 5);
  EXPECT_EQ(at(50, 50), clear);
  EXPECT_EQ(at(50, 10), black);
}

TEST_F(Drawing, ShadowLiesBelowWhatIsDrawn) {
  fillWith(UIColor::redColor());
  CGContextSetShadowWithColor(context, {5, 10}, 0, UIColor::blueColor().CGColor());
  CGContextFillRect(context, {{20, 20}, {20, 20}});
  EXPECT_EQ(at(25, 25), red);
  EXPECT_EQ(at(22, 45), clear);
  EXPECT_EQ(at(42, 45), blue);  // confirmed: downwards is positive in UIKit's contexts
  EXPECT_EQ(at(39, 39), red);
}

TEST_F(Drawing, ShadowsBlurSpreadsIt) {
  CGContextSetShadowWithColor(context, {30, 0}, 8, UIColor::blackColor().CGColor());
  CGContextFillRect(context, {{20, 40}, {20, 20}});
  const int middle = at(60, 50).alpha, edge = at(69, 50).alpha, beyond = at(73, 50).alpha;
  EXPECT_GT(middle, 200);
  EXPECT_NEAR(edge, 127, 25);
  EXPECT_LT(beyond, edge / 2 + 10);
  EXPECT_GT(beyond, 0);
  EXPECT_EQ(at(85, 50), clear);
}

TEST_F(Drawing, ShadowEndsWithoutAColor) {
  CGContextSetShadowWithColor(context, {30, 0}, 0, UIColor::blackColor().CGColor());
  CGContextSetShadowWithColor(context, {30, 0}, 0, nullptr);
  CGContextFillRect(context, {{20, 40}, {20, 20}});
  EXPECT_EQ(ink(), 400);
}

TEST_F(Drawing, WhatIsClippedAwayCastsItsShadow) {
  CGContextAddRect(context, {{50, 0}, {50, 100}});
  CGContextClip(context);
  CGContextSetShadowWithColor(context, {200, 0}, 0, UIColor::blueColor().CGColor());
  CGContextFillRect(context, {{-140, 40}, {20, 20}});
  EXPECT_EQ(at(70, 50), blue);  // confirmed: how inner shadows are drawn with CoreGraphics
  EXPECT_EQ(ink(), 400);
}

class Gradient : public Canvas {
 protected:
  Gradient() {
    const CGFloat components[] = {1, 0, 0, 1, 0, 0, 1, 1};
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    gradient = CGGradientCreateWithColorComponents(space, components, nullptr, 2);
    CGColorSpaceRelease(space);
  }
  ~Gradient() override { CGGradientRelease(gradient); }

  void drawDown(unsigned options) const {
    CGContextDrawLinearGradient(context, gradient, {0, 20}, {0, 80}, options);
  }

  CGGradientRef gradient;
};

TEST_F(Gradient, RunsFromStartToEnd) {
  drawDown(0);
  const Pixel middle = at(50, 50);
  EXPECT_NEAR(middle.red, 126, 3);
  EXPECT_NEAR(middle.blue, 129, 3);
  EXPECT_GT(at(50, 21).red, 245);
  EXPECT_GT(at(50, 78).blue, 245);
}

TEST_F(Gradient, EndsAtItsEndsUnlessItIsToGoOn) {
  drawDown(0);
  EXPECT_EQ(at(50, 15), clear);
  EXPECT_EQ(at(50, 85), clear);
  drawDown(kCGGradientDrawsBeforeStartLocation);
  EXPECT_EQ(at(50, 15), red);
  EXPECT_EQ(at(50, 85), clear);
  drawDown(kCGGradientDrawsAfterEndLocation);
  EXPECT_EQ(at(50, 85), blue);
}

TEST_F(Gradient, SpreadsFromACircleToACircle) {
  CGContextDrawRadialGradient(context, gradient, {50, 50}, 0, {50, 50}, 40, 0);
  EXPECT_GT(at(50, 50).red, 245);
  EXPECT_NEAR(at(70, 50).red, 126, 5);
  EXPECT_EQ(at(95, 50), clear);
  CGContextDrawRadialGradient(context, gradient, {50, 50}, 0, {50, 50}, 40, kCGGradientDrawsAfterEndLocation);
  EXPECT_EQ(at(95, 50), blue);
}

TEST_F(Gradient, HasItsStopsWhereTheyAreSaid) {
  const CGFloat components[] = {1, 0, 0, 1, 0, 1, 0, 1, 0, 0, 1, 1}, places[] = {0, 0.25, 1};
  CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
  CGGradientRef uneven = CGGradientCreateWithColorComponents(space, components, places, 3);
  CGContextDrawLinearGradient(context, uneven, {0, 0}, {0, 100}, 0);
  EXPECT_GT(at(50, 25).green, 245);
  EXPECT_NEAR(at(50, 62).green, 127, 5);
  CGGradientRelease(uneven);
  CGColorSpaceRelease(space);
}

TEST_F(Drawing, ColorsSetThemselves) {
  UIColor::redColor().setFill();
  UIColor::blueColor().setStroke();
  CGContextSetLineWidth(context, 4);
  CGContextAddRect(context, {{20, 20}, {40, 40}});
  CGContextDrawPath(context, kCGPathFillStroke);
  EXPECT_EQ(at(40, 40), red);
  EXPECT_EQ(at(20, 40), blue);
  UIColor::greenColor().set();
  CGContextAddRect(context, {{20, 20}, {40, 40}});
  CGContextDrawPath(context, kCGPathFillStroke);
  EXPECT_EQ(at(40, 40), green);
  EXPECT_EQ(at(20, 40), green);
}

TEST_F(Drawing, ContextsArePushedAndPopped) {
  const sim::Surface other = sim::makeImage(10, 10);
  const sim::Context otherCairo(other.get());
  CGContext pushed(otherCairo);
  UIGraphicsPushContext(&pushed);
  EXPECT_EQ(UIGraphicsGetCurrentContext(), &pushed);
  UIColor::redColor().setFill();
  CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {10, 10}});
  UIGraphicsPopContext();
  EXPECT_EQ(UIGraphicsGetCurrentContext(), context);
  EXPECT_EQ(sim::test::pixelAt(other.get(), 5, 5), red);
  EXPECT_EQ(ink(), 0);
}

TEST_F(UIKit, NothingIsDrawnWithoutAContext) {
  EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);  // confirmed: Apple documentation
  UIColor::redColor().set();
  CGContextFillRect(UIGraphicsGetCurrentContext(), {{0, 0}, {10, 10}});
  UIBezierPath::bezierPathWithRect({{0, 0}, {10, 10}}).fill();
}

}  // namespace
}  // namespace test
