// Content and pictures that the compositor keeps: painted once, and again when something has changed.
#include <gtest/gtest.h>

#include "tests/simulator/quartz/composite.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace sim {
namespace {

using test::Pixel;
using test::pixelAt;

class CompositorCache : public testing::Test {
 protected:
  CompositorCache() {
    root.setFrame({{0, 0}, {60, 60}});
    panel.setFrame({{10, 10}, {40, 40}});
    panel.backgroundColor = {1, 1, 1, 1};
    leaf.setFrame({{10, 10}, {20, 20}});
    leaf.setDraw([this](cairo_t* context, CGSize) {
      ++draws;
      setSource(context, color);
      cairo_paint(context);
    });
    root.addChild(panel);
    panel.addChild(leaf);
  }

  Pixel middle(double now = 0, double scale = 1) {
    const Surface image = compositeScreen(root, now, int(60 * scale), int(60 * scale), scale);
    return pixelAt(image.get(), int(30 * scale), int(30 * scale));
  }

  Color color{1, 0, 0, 1};
  int draws = 0;
  Layer root, panel, leaf;
};

TEST_F(CompositorCache, ContentIsDrawnOnceUntilItIsDue) {
  middle();
  middle();
  EXPECT_EQ(draws, 1);
  color = {0, 1, 0, 1};
  EXPECT_EQ(middle(), (Pixel{255, 0, 0, 255}));
  leaf.setNeedsDisplay();
  EXPECT_EQ(middle(), (Pixel{0, 255, 0, 255}));
  EXPECT_EQ(draws, 2);
}

TEST_F(CompositorCache, ContentThatIsNotSeenIsNotDrawn) {
  leaf.position = {500, 500};
  middle();
  panel.hidden = true;
  middle();
  EXPECT_EQ(draws, 0);
}

TEST_F(CompositorCache, ContentIsDrawnAgainAtAnotherScale) {
  middle(0, 1);
  middle(0, 2);
  EXPECT_EQ(draws, 2);
}

TEST_F(CompositorCache, ContentIsDrawnAgainInAnotherSizeUnlessItStretches) {
  middle();
  leaf.bounds.size = {30, 30};
  middle();
  EXPECT_EQ(draws, 2);
  leaf.redrawsOnResize = false;
  leaf.bounds.size = {10, 10};
  EXPECT_EQ(middle(), (Pixel{255, 0, 0, 255}));
  EXPECT_EQ(draws, 2);
}

TEST_F(CompositorCache, AnimatedSizesStretchTheContent) {
  const LayerValues before = leaf.values();
  leaf.bounds.size = {40, 40};
  leaf.animateFrom(before, {.start = 0, .duration = 1});
  for (const double now : {0.0, 0.3, 0.6, 1.0}) middle(now);
  EXPECT_EQ(draws, 1);
}

TEST_F(CompositorCache, RasterizedLayerLooksTheSame) {
  panel.cornerRadius = 8;
  panel.shadowOpacity = 0.5;
  panel.opacity = 0.8;
  const auto plain = encodePng(compositeScreen(root, 0, 120, 120, 2).get());
  panel.shouldRasterize = true;
  panel.rasterizationScale = 2;
  const Surface flat = compositeScreen(root, 0, 120, 120, 2);
  const Surface direct = [&] {
    panel.shouldRasterize = false;
    return compositeScreen(root, 0, 120, 120, 2);
  }();
  EXPECT_EQ(encodePng(direct.get()), plain);
  for (int y = 0; y < 120; ++y) {
    for (int x = 0; x < 120; ++x) {
      const Pixel a = pixelAt(flat.get(), x, y), b = pixelAt(direct.get(), x, y);
      ASSERT_NEAR(a.red, b.red, 2) << x << " " << y;
      ASSERT_NEAR(a.green, b.green, 2) << x << " " << y;
    }
  }
}

TEST_F(CompositorCache, RasterizedLayerHasThePixelsOfItsOwnScale) {
  leaf.setFrame({{10.5, 10}, {20, 20}});
  const auto edge = [this] { return pixelAt(compositeScreen(root, 0, 120, 120, 2).get(), 41, 60); };
  EXPECT_EQ(edge(), (Pixel{255, 0, 0, 255}));
  panel.shouldRasterize = true;
  // At one pixel per point the edge falls into the middle of a pixel.
  EXPECT_GT(edge().green, 60);
  panel.rasterizationScale = 2;
  EXPECT_EQ(edge(), (Pixel{255, 0, 0, 255}));
}

TEST_F(CompositorCache, RasterizedLayerShowsEveryChangeBelowIt) {
  panel.shouldRasterize = true;
  EXPECT_EQ(middle(), (Pixel{255, 0, 0, 255}));
  color = {0, 0, 1, 1};
  leaf.setNeedsDisplay();
  EXPECT_EQ(middle(), (Pixel{0, 0, 255, 255}));
  leaf.hidden = true;
  EXPECT_EQ(middle(), (Pixel{255, 255, 255, 255}));
  panel.backgroundColor = {0, 1, 0, 1};
  EXPECT_EQ(middle(), (Pixel{0, 255, 0, 255}));
  leaf.hidden = false;
  leaf.position.x += 25;
  EXPECT_EQ(middle(), (Pixel{0, 255, 0, 255}));
  leaf.position.x -= 25;
  leaf.opacity = 0;
  EXPECT_EQ(middle(), (Pixel{0, 255, 0, 255}));
  leaf.opacity = 1;
  EXPECT_EQ(middle(), (Pixel{0, 0, 255, 255}));
}

TEST_F(CompositorCache, RasterizedLayerShowsAnimationsBelowIt) {
  panel.shouldRasterize = true;
  const LayerValues before = leaf.values();
  leaf.opacity = 0;
  leaf.animateFrom(before, {.start = 0, .duration = 1, .pacing = linearCurve});
  EXPECT_EQ(middle(0), (Pixel{255, 0, 0, 255}));
  EXPECT_NEAR(middle(0.5).green, 128, 1);
  EXPECT_EQ(middle(1), (Pixel{255, 255, 255, 255}));
}

// At its start an animation shows the old bounds, but already what is drawn for the new ones.
TEST_F(CompositorCache, RasterizedLayerShowsContentDrawnForItsNewSize) {
  leaf.setDraw([](cairo_t* context, CGSize size) {
    setSource(context, size.width > 30 ? Color{0, 1, 0, 1} : Color{1, 0, 0, 1});
    cairo_paint(context);
  });
  panel.shouldRasterize = true;
  EXPECT_EQ(middle(), (Pixel{255, 0, 0, 255}));
  const LayerValues before = leaf.values();
  leaf.bounds.size = {40, 40};
  leaf.animateFrom(before, {.start = 0, .duration = 1, .pacing = linearCurve});
  EXPECT_EQ(leaf.presentation(0), before);
  EXPECT_EQ(middle(0), (Pixel{0, 255, 0, 255}));
}

TEST_F(CompositorCache, RasterizedLayerIsNotPaintedAgainWhenItOnlyMoves) {
  const Surface image = makeImage(4, 4);
  leaf.setContents(image, 1);
  panel.shouldRasterize = true;
  EXPECT_EQ(middle(), (Pixel{255, 255, 255, 255}));
  // New pixels that nobody was told of: they would show if the panel were painted from its parts.
  {
    const Context context(image.get());
    setSource(context, blackColor);
    cairo_paint(context);
  }
  panel.position.x += 3;
  panel.opacity = 0.5;
  panel.transform = scaling(0.9, 0.9);
  EXPECT_NEAR(middle().red, 128, 1);
  leaf.setNeedsDisplay();
  EXPECT_EQ(middle(), (Pixel{0, 0, 0, 255}));
}

TEST_F(CompositorCache, RasterizedLayersInOneAnotherKeepTheirOwnScales) {
  panel.shouldRasterize = true;
  leaf.shouldRasterize = true;
  leaf.rasterizationScale = 2;
  middle();
  middle();
  EXPECT_EQ(draws, 1);
}

TEST_F(CompositorCache, ShadowFollowsTheShape) {
  panel.shadowOpacity = 1;
  panel.shadowRadius = 1;
  panel.shadowOffset = {0, 0};
  root.backgroundColor = {1, 1, 1, 1};
  panel.backgroundColor = clearColor;
  const auto below = [this] { return pixelAt(compositeScreen(root, 0, 60, 60, 1).get(), 30, 40).red; };
  EXPECT_LT(below(), 255);
  leaf.position.y -= 8;
  EXPECT_EQ(below(), 255);
}

TEST_F(CompositorCache, SameTreeAndTimeGiveTheSameBytes) {
  panel.shadowOpacity = 0.5;
  panel.transform = rotation(0.3);
  panel.opacity = 0.9;
  const auto first = encodePng(compositeScreen(root, 0, 120, 120, 2).get());
  EXPECT_EQ(encodePng(compositeScreen(root, 0, 120, 120, 2).get()), first);
}

}  // namespace
}  // namespace sim
