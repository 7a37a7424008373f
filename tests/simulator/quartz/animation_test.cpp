// Animations of layers: the model changes at once, what is seen follows the clock.
#include "simulator/quartz/animation.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "simulator/quartz/layer.hpp"

namespace sim {
namespace {

constexpr double pi = std::numbers::pi;

AnimationTiming linear(double start, double duration) {
  return {.start = start, .duration = duration, .pacing = linearCurve};
}

void moveTo(Layer& layer, CGPoint position, const AnimationTiming& timing) {
  const LayerValues before = layer.values();
  layer.position = position;
  layer.animateFrom(before, timing);
}

TEST(Animation, ModelHoldsTheNewValueAtOnce) {
  Layer layer;
  moveTo(layer, {100, 0}, linear(10, 2));
  EXPECT_EQ(layer.position, (CGPoint{100, 0}));
  EXPECT_DOUBLE_EQ(layer.presentation(10).position.x, 0);
  EXPECT_DOUBLE_EQ(layer.presentation(10.5).position.x, 25);
  EXPECT_DOUBLE_EQ(layer.presentation(11.5).position.x, 75);
}

TEST(Animation, ShowsExactlyTheModelFromItsEndOn) {
  Layer layer;
  moveTo(layer, {1.0 / 3, 0.1}, {.start = 0, .duration = 0.4, .pacing = Spring(0.5, 0, 0.4)});
  EXPECT_EQ(layer.presentation(0.4), layer.values());
  EXPECT_NE(layer.presentation(0.399), layer.values());
}

TEST(Animation, ShowsTheOldValueThroughItsDelay) {
  Layer layer;
  AnimationTiming timing = linear(1, 1);
  timing.delay = 2;
  moveTo(layer, {100, 0}, timing);
  EXPECT_DOUBLE_EQ(layer.presentation(2.9).position.x, 0);
  EXPECT_DOUBLE_EQ(layer.presentation(3.5).position.x, 50);
  EXPECT_TRUE(layer.hasAnimations(3.9));
  EXPECT_FALSE(layer.hasAnimations(4));
}

TEST(Animation, FollowsItsCurve) {
  Layer layer;
  moveTo(layer, {100, 0}, {.start = 0, .duration = 2, .pacing = easeInOutCurve});
  EXPECT_DOUBLE_EQ(layer.presentation(0.5).position.x, 100 * easeInOutCurve.progress(0.25));
}

TEST(Animation, SpringPassesItsTarget) {
  Layer layer;
  moveTo(layer, {100, 0}, {.start = 0, .duration = 0.5, .pacing = Spring(0.5, 0, 0.5)});
  EXPECT_NEAR(layer.presentation(0.15).position.x, 116.0, 0.05);
}

TEST(Animation, SeveralOfOnePropertyAddUp) {
  Layer layer;
  moveTo(layer, {100, 0}, linear(0, 1));
  moveTo(layer, {100, 40}, linear(0.25, 1));
  moveTo(layer, {0, 40}, linear(0.5, 1));
  // Half a second in, the first is half way; the third has only just begun to lead back.
  EXPECT_DOUBLE_EQ(layer.presentation(0.5).position.x, 50);
  EXPECT_DOUBLE_EQ(layer.presentation(0.5).position.y, 10);
  EXPECT_DOUBLE_EQ(layer.presentation(1).position.x, 50);
  EXPECT_DOUBLE_EQ(layer.presentation(1.25).position.x, 25);
  EXPECT_DOUBLE_EQ(layer.presentation(1.25).position.y, 40);
}

TEST(Animation, AddedLaterItDoesNotMakeTheLayerJump) {
  Layer layer;
  const AnimationTiming first{.start = 0, .duration = 1, .pacing = easeInOutCurve};
  moveTo(layer, {100, 0}, first);
  const double before = layer.presentation(0.6).position.x;
  moveTo(layer, {-50, 0}, {.start = 0.6, .duration = 1, .pacing = easeInOutCurve});
  EXPECT_NEAR(layer.presentation(0.6).position.x, before, 1e-9);
}

TEST(Animation, FromThePresentationItTakesOverFromWhatIsSeen) {
  Layer layer;
  moveTo(layer, {100, 0}, linear(0, 1));
  const LayerValues seen = layer.presentation(0.5);
  layer.removeAnimations();
  layer.position = {0, 0};
  layer.animateFrom(seen, linear(0.5, 1));
  EXPECT_DOUBLE_EQ(layer.presentation(0.5).position.x, 50);
  EXPECT_DOUBLE_EQ(layer.presentation(1).position.x, 25);
}

TEST(Animation, IsAddedForChangedValuesOnly) {
  Layer layer;
  const LayerValues before = layer.values();
  layer.opacity = 0;
  layer.cornerRadius = 8;
  EXPECT_EQ(layer.animateFrom(before, linear(0, 1), 7), 2);
  ASSERT_EQ(layer.animations().size(), 2u);
  EXPECT_EQ(layer.animations()[0].property, LayerProperty::opacity);
  EXPECT_EQ(layer.animations()[0].group, 7u);
  EXPECT_EQ(layer.animations()[1].property, LayerProperty::cornerRadius);
  EXPECT_EQ(layer.animateFrom(layer.values(), linear(0, 1)), 0);
}

TEST(Animation, OfEveryPropertyIsHalfWayInTheMiddle) {
  Layer layer;
  layer.setFrame({{0, 0}, {10, 20}});
  layer.backgroundColor = {1, 0, 0, 1};
  const LayerValues before = layer.values();
  layer.position = {10, 20};
  layer.bounds = {{4, 8}, {30, 40}};
  layer.opacity = 0.5;
  layer.transform = scaling(3, 2);
  layer.backgroundColor = {0, 0, 1, 1};
  layer.cornerRadius = 6;
  EXPECT_EQ(layer.animateFrom(before, linear(0, 1)), 6);
  const LayerValues middle = layer.presentation(0.5);
  EXPECT_EQ(middle.position, (CGPoint{7.5, 15}));
  EXPECT_EQ(middle.bounds, (CGRect{{2, 4}, {20, 30}}));
  EXPECT_EQ(middle.opacity, 0.75);
  EXPECT_EQ(middle.transform, scaling(2, 1.5));
  EXPECT_EQ(middle.backgroundColor, (Color{0.5, 0, 0.5, 1}));
  EXPECT_EQ(middle.cornerRadius, 3);
}

TEST(Animation, OfATurnKeepsTheSize) {
  Layer layer;
  const LayerValues before = layer.values();
  layer.transform = rotation(0.9 * pi);
  layer.animateFrom(before, linear(0, 1));
  const TransformParts parts = partsOf(layer.presentation(0.5).transform);
  EXPECT_NEAR(parts.angle, 0.45 * pi, 1e-12);
  EXPECT_NEAR(parts.scaleX, 1, 1e-12);
  EXPECT_NEAR(parts.scaleY, 1, 1e-12);
}

TEST(Animation, TurnsTheShorterWay) {
  Layer layer;
  layer.transform = rotation(0.9 * pi);
  const LayerValues before = layer.values();
  layer.transform = rotation(-0.9 * pi);
  layer.animateFrom(before, linear(0, 1));
  EXPECT_NEAR(std::abs(partsOf(layer.presentation(0.5).transform).angle), pi, 1e-12);
}

TEST(Animation, FromNothingGrowsEvenly) {
  Layer layer;
  layer.transform = scaling(0, 0);
  const LayerValues before = layer.values();
  layer.transform = identityTransform;
  layer.animateFrom(before, linear(0, 1));
  EXPECT_EQ(layer.presentation(0.25).transform, scaling(0.25, 0.25));
}

TEST(Animation, FadeFromClearKeepsTheColour) {
  Layer layer;
  const LayerValues before = layer.values();
  layer.backgroundColor = {1, 0.5, 0, 1};
  layer.animateFrom(before, linear(0, 1));
  EXPECT_EQ(layer.presentation(0.5).backgroundColor, (Color{1, 0.5, 0, 0.5}));
}

TEST(Animation, SpringNeverLeavesTheRangeOfOpacity) {
  Layer layer;
  layer.opacity = 0;
  const LayerValues before = layer.values();
  layer.opacity = 1;
  layer.animateFrom(before, {.start = 0, .duration = 0.5, .pacing = Spring(0.5, 0, 0.5)});
  EXPECT_EQ(layer.presentation(0.15).opacity, 1);
}

TEST(Animation, RepeatsAndRunsBack) {
  Layer layer;
  AnimationTiming timing = linear(0, 1);
  timing.repeatCount = 2;
  timing.autoreverses = true;
  moveTo(layer, {100, 0}, timing);
  EXPECT_DOUBLE_EQ(layer.presentation(0.75).position.x, 75);
  EXPECT_DOUBLE_EQ(layer.presentation(1.75).position.x, 25);
  EXPECT_DOUBLE_EQ(layer.presentation(2.5).position.x, 50);
  EXPECT_EQ(layer.animationsEnd(), 4);
  EXPECT_EQ(layer.presentation(4).position.x, 100);
}

TEST(Animation, RepeatedForEverHasNoEnd) {
  Layer layer;
  AnimationTiming timing = linear(0, 1);
  timing.repeatCount = std::numeric_limits<double>::infinity();
  // A whole turn, which two transforms alone cannot tell from none.
  layer.addAnimation({LayerProperty::transform, {0, 0, -2 * pi}, timing});
  EXPECT_NEAR(partsOf(layer.presentation(1000.25).transform).angle, pi / 2, 1e-9);
  EXPECT_TRUE(layer.hasAnimations(1e9));
  EXPECT_EQ(layer.animationsEnd(), std::numeric_limits<double>::infinity());
}

TEST(Animation, WithoutDurationIsOverAtOnce) {
  Layer layer;
  moveTo(layer, {100, 0}, linear(3, 0));
  EXPECT_EQ(layer.presentation(3).position.x, 100);
  EXPECT_FALSE(layer.hasAnimations(3));
}

TEST(Animation, RemovalGivesBackWhatRanAndShowsTheModel) {
  Layer layer;
  const LayerValues before = layer.values();
  layer.position = {100, 0};
  layer.opacity = 0;
  layer.animateFrom(before, linear(0, 1), 3);
  const auto removed = layer.removeAnimations(LayerProperty::position);
  ASSERT_EQ(removed.size(), 1u);
  EXPECT_EQ(removed[0].group, 3u);
  EXPECT_EQ(layer.presentation(0.5).position.x, 100);
  EXPECT_EQ(layer.presentation(0.5).opacity, 0.5);
  EXPECT_EQ(layer.removeAnimations().size(), 1u);
  EXPECT_EQ(layer.animationsEnd(), std::nullopt);
}

TEST(Animation, FinishedOnesAreTakenAwayAlone) {
  Layer layer;
  moveTo(layer, {100, 0}, linear(0, 1));
  moveTo(layer, {200, 0}, linear(0, 2));
  EXPECT_EQ(layer.animationsEnd(), 2);
  EXPECT_EQ(layer.removeFinishedAnimations(0.99).size(), 0u);
  EXPECT_EQ(layer.removeFinishedAnimations(1).size(), 1u);
  EXPECT_DOUBLE_EQ(layer.presentation(1).position.x, 150);
}

}  // namespace
}  // namespace sim
