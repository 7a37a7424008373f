// Frames, transforms and conversion of points between layers.
#include <gtest/gtest.h>

#include <numbers>

#include "simulator/quartz/layer.hpp"

namespace sim {
namespace {

constexpr double pi = std::numbers::pi;

void expectNear(const CGRect& actual, const CGRect& expected) {
  EXPECT_NEAR(actual.origin.x, expected.origin.x, 1e-9);
  EXPECT_NEAR(actual.origin.y, expected.origin.y, 1e-9);
  EXPECT_NEAR(actual.size.width, expected.size.width, 1e-9);
  EXPECT_NEAR(actual.size.height, expected.size.height, 1e-9);
}

void expectNear(CGPoint actual, CGPoint expected) {
  EXPECT_NEAR(actual.x, expected.x, 1e-9);
  EXPECT_NEAR(actual.y, expected.y, 1e-9);
}

TEST(Frame, FollowsFromPositionBoundsAndAnchor) {
  Layer layer;
  layer.bounds = {{0, 0}, {40, 20}};
  layer.position = {100, 50};
  EXPECT_EQ(layer.frame(), (CGRect{{80, 40}, {40, 20}}));
  layer.anchorPoint = {0, 1};
  EXPECT_EQ(layer.frame(), (CGRect{{100, 30}, {40, 20}}));
}

TEST(Frame, SettingItMovesPositionAndSizesBounds) {
  Layer layer;
  layer.setFrame({{10, 20}, {100, 50}});
  EXPECT_EQ(layer.position, (CGPoint{60, 45}));
  EXPECT_EQ(layer.bounds, (CGRect{{0, 0}, {100, 50}}));
  EXPECT_EQ(layer.frame(), (CGRect{{10, 20}, {100, 50}}));
}

TEST(Frame, SettingItKeepsTheBoundsOrigin) {
  Layer layer;
  layer.bounds.origin = {0, 300};
  layer.setFrame({{10, 20}, {100, 50}});
  EXPECT_EQ(layer.bounds, (CGRect{{0, 300}, {100, 50}}));
  EXPECT_EQ(layer.frame(), (CGRect{{10, 20}, {100, 50}}));
}

TEST(Frame, NegativeSizesAreStandardized) {
  Layer layer;
  layer.setFrame({{50, 50}, {-20, -10}});
  EXPECT_EQ(layer.frame(), (CGRect{{30, 40}, {20, 10}}));
}

TEST(Frame, SizingBoundsKeepsThePosition) {
  Layer layer;
  layer.setFrame({{0, 0}, {100, 100}});
  layer.bounds.size = {50, 20};
  EXPECT_EQ(layer.position, (CGPoint{50, 50}));
  EXPECT_EQ(layer.frame(), (CGRect{{25, 40}, {50, 20}}));
}

TEST(Frame, UnderATransformIsTheBoundingBox) {
  Layer layer;
  layer.setFrame({{0, 0}, {100, 50}});
  layer.transform = rotation(pi / 2);
  expectNear(layer.frame(), {{25, -25}, {50, 100}});
  layer.transform = scaling(2, 2);
  expectNear(layer.frame(), {{-50, -25}, {200, 100}});
}

TEST(Frame, SetUnderAScaleOrAQuarterTurnReadsBack) {
  for (const CGAffineTransform& transform :
       {scaling(0.5, 2), scaling(-1, 1), rotation(pi / 2), concat(scaling(2, 2), translation(7, 9))}) {
    Layer layer;
    layer.setFrame({{0, 0}, {10, 10}});
    layer.transform = transform;
    layer.setFrame({{20, 30}, {80, 60}});
    expectNear(layer.frame(), {{20, 30}, {80, 60}});
    EXPECT_EQ(layer.transform, transform);
  }
}

TEST(Frame, SetUnderAFlatteningTransformSizesTheBounds) {
  Layer layer;
  layer.transform = scaling(0, 0);
  layer.setFrame({{20, 30}, {80, 60}});
  EXPECT_EQ(layer.bounds.size, (CGSize{80, 60}));
}

class Conversion : public testing::Test {
 protected:
  Conversion() {
    root.setFrame({{0, 0}, {300, 600}});
    left.setFrame({{10, 20}, {100, 100}});
    right.setFrame({{150, 20}, {100, 100}});
    leaf.setFrame({{5, 5}, {20, 20}});
    root.addChild(left);
    root.addChild(right);
    left.addChild(leaf);
  }
  Layer root, left, right, leaf;
};

TEST_F(Conversion, GoesUpAndDownTheTree) {
  EXPECT_EQ(convertPoint({1, 2}, &leaf, &root), (CGPoint{16, 27}));
  EXPECT_EQ(convertPoint({16, 27}, &root, &leaf), (CGPoint{1, 2}));
  EXPECT_EQ(convertPoint({1, 2}, &leaf, &right), (CGPoint{-134, 7}));
  EXPECT_EQ(convertPoint({1, 2}, &leaf, &leaf), (CGPoint{1, 2}));
}

TEST_F(Conversion, WithoutALayerMeansOutsideTheRoot) {
  root.position.x += 1000;
  EXPECT_EQ(convertPoint({0, 0}, &left, nullptr), (CGPoint{1010, 20}));
  EXPECT_EQ(convertPoint({1010, 20}, nullptr, &left), (CGPoint{0, 0}));
  EXPECT_EQ(convertPoint({0, 0}, &left, &root), (CGPoint{10, 20}));
}

TEST_F(Conversion, BoundsOriginScrollsTheChildren) {
  left.bounds.origin = {0, 40};
  EXPECT_EQ(convertPoint({0, 0}, &leaf, &root), (CGPoint{15, -15}));
}

TEST_F(Conversion, GoesThroughTransforms) {
  left.transform = scaling(2, 2);
  expectNear(convertPoint({0, 0}, &leaf, &root), {60 - 2 * 45, 70 - 2 * 45});
  expectNear(convertPoint({-30, -20}, &root, &leaf), {0, 0});
  left.transform = rotation(pi);
  expectNear(convertPoint({0, 0}, &left, &root), {110, 120});
}

TEST_F(Conversion, OfARectIsItsBoundingBox) {
  left.transform = rotation(pi / 2);
  expectNear(convertRect({{0, 0}, {100, 20}}, &left, &root), {{90, 20}, {20, 100}});
}

TEST_F(Conversion, BetweenLayersOfDifferentTreesGoesOverTheOutside) {
  Layer other;
  other.setFrame({{100, 100}, {10, 10}});
  EXPECT_EQ(convertPoint({0, 0}, &left, &other), (CGPoint{-90, -80}));
}

TEST_F(Conversion, IsNotDisturbedByAFlattenedAncestorOfBoth) {
  root.transform = scaling(0, 0);
  EXPECT_EQ(convertPoint({1, 2}, &leaf, &right), (CGPoint{-134, 7}));
}

TEST_F(Conversion, AtATimeFollowsThePresentation) {
  const LayerValues before = left.values();
  left.position.x += 100;
  left.animateFrom(before, {.start = 5, .duration = 1, .pacing = linearCurve});
  EXPECT_EQ(convertPoint({0, 0}, &left, &root), (CGPoint{110, 20}));
  expectNear(convertPoint({0, 0}, &left, &root, 5.5), {60, 20});
  expectNear(left.frame(5.25), {{35, 20}, {100, 100}});
}

}  // namespace
}  // namespace sim
