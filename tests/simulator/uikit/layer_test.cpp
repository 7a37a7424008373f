// CALayer's shadow and bitmap, and UIView's looks that a layer does not keep.
#include "simulator/uikit/drawing/color.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

class LayerLooks : public UIKit {
 protected:
  Strong<UIView> view = makeView({{0, 0}, {100, 100}});
  CALayer layer = view->layer();
  const sim::Layer& node = sim::uikit::layerOf(layer);
};

TEST_F(LayerLooks, ShadowStartsAsDocumented) {
  // confirmed: Apple documentation of CALayer
  EXPECT_EQ(sim::uikit::colorOf(layer.shadowColor()), sim::blackColor);
  EXPECT_EQ(layer.shadowOpacity(), 0);
  EXPECT_EQ(layer.shadowRadius(), 3);
  EXPECT_EQ(layer.shadowOffset(), (CGSize{0, -3}));
  EXPECT_FALSE(layer.shouldRasterize());
  EXPECT_EQ(layer.rasterizationScale(), 1);
}

TEST_F(LayerLooks, ShadowReadsBackAndReachesWhatIsDrawn) {
  layer.shadowColor.set(UIColor::redColor().CGColor());
  layer.shadowOpacity.set(0.5f);
  layer.shadowRadius.set(10);
  layer.shadowOffset.set({3, 4});
  EXPECT_EQ(sim::uikit::colorOf(layer.shadowColor()), sim::uikit::colorOf(UIColor::redColor()));
  EXPECT_EQ(layer.shadowOpacity(), 0.5f);
  EXPECT_EQ(layer.shadowRadius(), 10);
  EXPECT_EQ(layer.shadowOffset(), (CGSize{3, 4}));
  EXPECT_EQ(node.shadowColor, sim::uikit::colorOf(UIColor::redColor()));
  EXPECT_EQ(node.shadowOpacity, 0.5);
  EXPECT_EQ(node.shadowRadius, 10);
  EXPECT_EQ(node.shadowOffset, (CGSize{3, 4}));
}

TEST_F(LayerLooks, ShadowColorOutlivesTheColorThatItCameFrom) {
  {
    const Pool inner;
    layer.shadowColor.set(UIColor::colorWithRed_green_blue_alpha(0.1, 0.2, 0.3, 1).CGColor());
  }
  EXPECT_EQ(sim::uikit::colorOf(layer.shadowColor()), (sim::Color{0.1, 0.2, 0.3, 1}));
}

TEST_F(LayerLooks, NoShadowColorMeansNoShadow) {
  layer.shadowColor.set(nullptr);
  EXPECT_EQ(node.shadowColor.alpha, 0);
}

TEST_F(LayerLooks, BitmapReadsBackAndReachesWhatIsDrawn) {
  layer.shouldRasterize.set(YES);
  layer.rasterizationScale.set(2);
  EXPECT_TRUE(layer.shouldRasterize());
  EXPECT_EQ(layer.rasterizationScale(), 2);
  EXPECT_TRUE(node.shouldRasterize);
  EXPECT_EQ(node.rasterizationScale, 2);
}

TEST_F(LayerLooks, ViewIsOpaqueUnlessItIsSaid) {
  EXPECT_TRUE(view->opaque());  // confirmed: Apple documentation of opaque
  view->opaque.set(NO);
  EXPECT_FALSE(view->opaque());
}

TEST_F(LayerLooks, TintIsThatOfTheNearestAncestorThatHasOne) {
  auto outer = makeView(), inner = makeView();
  outer->addSubview(view);
  view->addSubview(inner);
  EXPECT_EQ(sim::uikit::colorOf(inner->tintColor()), sim::rgb(0x007aff));
  outer->tintColor.set(UIColor::redColor());
  EXPECT_TRUE(inner->tintColor() == UIColor::redColor());  // confirmed: Apple documentation of tintColor
  view->tintColor.set(UIColor::greenColor());
  EXPECT_TRUE(inner->tintColor() == UIColor::greenColor());
  view->tintColor.set({});
  EXPECT_TRUE(inner->tintColor() == UIColor::redColor());
}

}  // namespace
}  // namespace test
