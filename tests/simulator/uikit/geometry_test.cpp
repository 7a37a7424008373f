// Frames, centers, transforms and coordinates.
#include <cmath>
#include <limits>

#include "simulator/quartz/affine.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

using Geometry = UIKit;

TEST_F(Geometry, FrameOfAnUntransformedViewIsWhatWasSet) {
  auto view = makeView({{10, 20}, {30, 40}});
  EXPECT_EQ(view->frame(), (CGRect{{10, 20}, {30, 40}}));
  EXPECT_EQ(view->bounds(), (CGRect{{0, 0}, {30, 40}}));
  EXPECT_EQ(view->center(), (CGPoint{25, 40}));  // confirmed: device-facts 7.4
}

TEST_F(Geometry, CenterMovesTheViewAndKeepsItsSize) {
  auto view = makeView({{10, 20}, {30, 40}});
  view->center.set({100, 100});
  EXPECT_EQ(view->frame(), (CGRect{{85, 80}, {30, 40}}));  // confirmed: device-facts 7.4
}

TEST_F(Geometry, BoundsSizeGrowsTheViewAboutItsCenter) {
  auto view = makeView({{10, 20}, {30, 40}});
  view->bounds.set({{0, 0}, {50, 60}});
  EXPECT_EQ(view->frame(), (CGRect{{0, 10}, {50, 60}}));  // confirmed: device-facts 7.4
}

TEST_F(Geometry, FrameOfATransformedViewIsItsBoundingBox) {
  auto view = makeView({{0, 0}, {100, 50}});
  view->transform.set(sim::rotation(M_PI / 2));
  const CGRect frame = view->frame();  // confirmed: device-facts 7.4
  EXPECT_NEAR(frame.origin.x, 25, 1e-9);
  EXPECT_NEAR(frame.origin.y, -25, 1e-9);
  EXPECT_NEAR(frame.size.width, 50, 1e-9);
  EXPECT_NEAR(frame.size.height, 100, 1e-9);
  EXPECT_EQ(view->bounds(), (CGRect{{0, 0}, {100, 50}}));
  EXPECT_EQ(view->center(), (CGPoint{50, 25}));
}

TEST_F(Geometry, ScalingActsAboutTheAnchorPoint) {
  auto view = makeView({{0, 0}, {100, 100}});
  view->layer().anchorPoint.set({0, 0});
  view->center.set({10, 10});
  view->transform.set(sim::scaling(2, 2));
  EXPECT_EQ(view->frame(), (CGRect{{10, 10}, {200, 200}}));  // confirmed: device-facts 7.4
}

TEST_F(Geometry, FrameSetUnderAScaleSizesTheBoundsAccordingly) {
  auto view = makeView({{0, 0}, {100, 100}});
  view->transform.set(sim::scaling(2, 2));
  view->frame.set({{0, 0}, {100, 100}});
  EXPECT_EQ(view->frame(), (CGRect{{0, 0}, {100, 100}}));
  EXPECT_EQ(view->bounds().size, (CGSize{50, 50}));  // assumed: undefined by Apple's documentation
}

TEST_F(Geometry, NegativeSizesAreStandardized) {
  auto view = makeView({{10, 10}, {-4, -6}});
  EXPECT_EQ(view->frame(), (CGRect{{6, 4}, {4, 6}}));  // assumed: device-facts 7.4
}

TEST_F(Geometry, WhatIsNotANumberRaises) {
  auto view = makeView();
  const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
  EXPECT_ANY_THROW(view->center.set({nan, 0}));  // assumed: Core Animation raises CALayerInvalidGeometry
  EXPECT_ANY_THROW(view->frame.set({{0, nan}, {1, 1}}));
  EXPECT_EQ(view->center(), (CGPoint{0, 0}));
}

TEST_F(Geometry, PointsGoThroughTheChainOfParents) {
  auto outer = makeView({{100, 100}, {200, 200}});
  auto inner = makeView({{10, 20}, {50, 50}});
  outer->addSubview(inner);
  EXPECT_EQ(inner->convertPoint_toView({1, 2}, outer), (CGPoint{11, 22}));  // confirmed: device-facts 7.4
  EXPECT_EQ(inner->convertPoint_fromView({11, 22}, outer), (CGPoint{1, 2}));
  EXPECT_EQ(inner->convertRect_toView({{0, 0}, {5, 5}}, outer), (CGRect{{10, 20}, {5, 5}}));
  EXPECT_EQ(inner->convertRect_fromView({{10, 20}, {5, 5}}, outer), (CGRect{{0, 0}, {5, 5}}));
}

TEST_F(Geometry, BoundsOriginScrollsTheChildren) {
  auto outer = makeView({{0, 0}, {200, 200}});
  auto inner = makeView({{10, 20}, {50, 50}});
  outer->addSubview(inner);
  outer->bounds.set({{0, 15}, {200, 200}});
  EXPECT_EQ(inner->frame(), (CGRect{{10, 20}, {50, 50}}));
  EXPECT_EQ(outer->convertPoint_fromView({0, 0}, inner), (CGPoint{10, 20}));
  auto window = makeWindow();
  window->addSubview(outer);
  EXPECT_EQ(inner->convertPoint_toView({0, 0}, {}), (CGPoint{10, 5}));  // confirmed: device-facts 7.4
}

TEST_F(Geometry, NoViewStandsForTheWindow) {
  auto window = makeWindow();
  auto outer = makeView({{100, 100}, {200, 200}});
  auto inner = makeView({{10, 20}, {50, 50}});
  window->addSubview(outer);
  outer->addSubview(inner);
  EXPECT_EQ(inner->convertPoint_toView({0, 0}, {}), (CGPoint{110, 120}));  // confirmed: device-facts 7.4
  EXPECT_EQ(inner->convertPoint_fromView({110, 120}, {}), (CGPoint{0, 0}));
}

TEST_F(Geometry, SizeToFitAsksForTheSizeThatFits) {
  auto view = makeView({{5, 5}, {50, 50}});
  view->sizeToFit();
  EXPECT_EQ(view->frame(), (CGRect{{5, 5}, {50, 50}}));  // confirmed: Apple documentation of sizeThatFits:
}

TEST_F(Geometry, InitStartsEmpty) {
  auto view = make<UIView, &NSObject::init>();
  EXPECT_EQ(view->frame(), (CGRect{}));
  EXPECT_EQ(view->transform(), identityTransform);
  EXPECT_EQ(view->alpha(), 1);
  EXPECT_FALSE(view->hidden());
  EXPECT_FALSE(view->backgroundColor());  // confirmed: Apple documentation of backgroundColor
}

TEST_F(Geometry, AlphaStaysBetweenZeroAndOne) {
  auto view = makeView();
  view->alpha.set(2);
  EXPECT_EQ(view->alpha(), 1);  // assumed
  view->alpha.set(-1);
  EXPECT_EQ(view->alpha(), 0);
  EXPECT_EQ(view->layer().opacity(), 0);
}

}  // namespace
}  // namespace test
