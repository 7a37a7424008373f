// Affine transforms: order, inverse, boxes and parts.
#include "simulator/quartz/affine.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace sim {
namespace {

constexpr double pi = std::numbers::pi;

void expectNear(const CGAffineTransform& actual, const CGAffineTransform& expected) {
  EXPECT_NEAR(actual.a, expected.a, 1e-12);
  EXPECT_NEAR(actual.b, expected.b, 1e-12);
  EXPECT_NEAR(actual.c, expected.c, 1e-12);
  EXPECT_NEAR(actual.d, expected.d, 1e-12);
  EXPECT_NEAR(actual.tx, expected.tx, 1e-12);
  EXPECT_NEAR(actual.ty, expected.ty, 1e-12);
}

TEST(Affine, ConcatAppliesItsFirstArgumentFirst) {
  const CGPoint point = apply(concat(translation(1, 0), scaling(10, 2)), {1, 1});
  EXPECT_EQ(point, (CGPoint{20, 2}));
}

TEST(Affine, PositiveRotationTurnsXTowardsY) {
  const CGPoint point = apply(rotation(pi / 2), {1, 0});
  EXPECT_NEAR(point.x, 0, 1e-15);
  EXPECT_NEAR(point.y, 1, 1e-15);
}

TEST(Affine, InverseLeadsBack) {
  const CGAffineTransform transform = concat(concat(scaling(2, -3), rotation(0.7)), translation(5, -8));
  expectNear(concat(transform, inverse(transform).value()), identityTransform);
}

TEST(Affine, FlatteningTransformsHaveNoInverse) {
  EXPECT_FALSE(inverse(scaling(0, 1)));
  EXPECT_FALSE(inverse(scaling(0, 0)));
  EXPECT_FALSE(inverse({std::nan(""), 0, 0, 1, 0, 0}));
  EXPECT_FALSE(inverse(translation(std::numeric_limits<double>::infinity(), 0)));
}

TEST(Affine, BoundingBoxHoldsTheTurnedCorners) {
  const CGRect box = boundingBox(rotation(pi / 4), {{-1, -1}, {2, 2}});
  EXPECT_NEAR(box.origin.x, -std::numbers::sqrt2, 1e-12);
  EXPECT_NEAR(box.size.height, 2 * std::numbers::sqrt2, 1e-12);
}

TEST(Affine, StandardizedRectCoversTheSameArea) {
  EXPECT_EQ(standardized({{10, 20}, {-4, -6}}), (CGRect{{6, 14}, {4, 6}}));
  EXPECT_EQ(standardized({{10, 20}, {4, 6}}), (CGRect{{10, 20}, {4, 6}}));
}

TEST(Affine, UnionIgnoresEmptyRects) {
  EXPECT_EQ(unionOf({{0, 0}, {2, 2}}, {{90, 90}, {0, 5}}), (CGRect{{0, 0}, {2, 2}}));
  EXPECT_EQ(unionOf({{90, 90}, {0, 5}}, {{0, 0}, {2, 2}}), (CGRect{{0, 0}, {2, 2}}));
  EXPECT_EQ(unionOf({{0, 0}, {2, 2}}, {{3, -1}, {1, 1}}), (CGRect{{0, -1}, {4, 3}}));
}

TEST(TransformParts, PutTogetherMakeTheTransformAgain) {
  const CGAffineTransform samples[] = {identityTransform,
                                       scaling(-1, 1),
                                       scaling(3, 0.25),
                                       rotation(2.5),
                                       concat(scaling(2, -3), rotation(-1)),
                                       {1, 0.5, -0.25, 2, 7, 9},
                                       scaling(0, 0),
                                       concat(scaling(0, 2), rotation(0.5))};
  for (const CGAffineTransform& sample : samples) expectNear(transformOf(partsOf(sample)), sample);
}

TEST(TransformParts, NameAngleAndScales) {
  const TransformParts parts = partsOf(concat(concat(scaling(2, 3), rotation(0.5)), translation(4, 5)));
  EXPECT_NEAR(parts.angle, 0.5, 1e-12);
  EXPECT_NEAR(parts.scaleX, 2, 1e-12);
  EXPECT_NEAR(parts.scaleY, 3, 1e-12);
  EXPECT_NEAR(parts.shear, 0, 1e-12);
  EXPECT_EQ(parts.x, 4);
  EXPECT_EQ(parts.y, 5);
}

}  // namespace
}  // namespace sim
