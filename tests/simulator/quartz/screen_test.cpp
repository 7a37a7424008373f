// A screen that is painted only where it has changed: the same picture as one that is painted anew.
#include "simulator/quartz/screen.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <vector>

#include "tests/simulator/quartz/composite.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace sim {
namespace {

using test::Pixel;
using test::pixelAt;

constexpr Color red{1, 0, 0, 1}, blue{0, 0, 1, 1};

bool areEqual(const Surface& a, const Surface& b) {
  const auto size = static_cast<std::size_t>(cairo_image_surface_get_stride(a.get())) *
                    static_cast<std::size_t>(cairo_image_surface_get_height(a.get()));
  return std::memcmp(cairo_image_surface_get_data(a.get()), cairo_image_surface_get_data(b.get()), size) == 0;
}

PixelRect extentOf(const Region& region) {
  PixelRect all{};
  for (const PixelRect& rect : region.rectangles()) all = unionOf(all, rect);
  return all;
}

class ScreenOf : public testing::Test {
 protected:
  ScreenOf() {
    root.setFrame({{0, 0}, {100, 100}});
    place(back, {{10, 10}, {30, 30}}, red);
    place(front, {{50, 50}, {20, 20}}, blue);
  }

  void place(Layer& layer, const CGRect& frame, const Color& color) {
    layer.setFrame(frame);
    layer.backgroundColor = color;
    root.addChild(layer);
  }

  Surface draw(double now = 0) {
    Layer* const roots[] = {&root};
    return screen.draw(roots, now, 100, 100, 1);
  }

  Layer root, back, front;
  PaintedScreen screen;
};

TEST_F(ScreenOf, NothingThatChangedIsTheSamePicture) {
  const Surface first = draw();
  EXPECT_EQ(draw(), first);
  EXPECT_TRUE(screen.changed().isEmpty());
}

TEST_F(ScreenOf, ALayerThatMovesIsPaintedWhereItWasAndWhereItIs) {
  draw();
  front.position.x += 20;
  const Surface moved = draw();
  EXPECT_EQ(pixelAt(moved.get(), 55, 60), (Pixel{0, 0, 0, 255}));
  EXPECT_EQ(pixelAt(moved.get(), 85, 60), (Pixel{0, 0, 255, 255}));
  EXPECT_TRUE(contains({49, 49, 42, 22}, extentOf(screen.changed())));
}

TEST_F(ScreenOf, ALayerThatGoesUncoversWhatIsBehindIt) {
  front.setFrame({{20, 20}, {10, 10}});
  EXPECT_EQ(pixelAt(draw().get(), 25, 25), (Pixel{0, 0, 255, 255}));
  front.removeFromParent();
  EXPECT_EQ(pixelAt(draw().get(), 25, 25), (Pixel{255, 0, 0, 255}));
}

TEST_F(ScreenOf, AnotherOrderIsSeenWhereLayersMeet) {
  front.setFrame({{20, 20}, {30, 30}});
  EXPECT_EQ(pixelAt(draw().get(), 25, 25), (Pixel{0, 0, 255, 255}));
  root.addChild(back);
  EXPECT_EQ(pixelAt(draw().get(), 25, 25), (Pixel{255, 0, 0, 255}));
}

TEST_F(ScreenOf, ALayerInThePlaceOfOneThatDiedIsAnother) {
  auto first = std::make_unique<Layer>();
  place(*first, {{60, 10}, {10, 10}}, red);
  draw();
  Layer* const address = first.release();
  std::destroy_at(address);
  std::construct_at(address);
  const std::unique_ptr<Layer> second(address);
  place(*second, {{60, 10}, {10, 10}}, red);
  draw();
  EXPECT_FALSE(screen.changed().isEmpty());
}

TEST_F(ScreenOf, APictureThatSomebodyHoldsStaysAsItIs) {
  const Surface first = draw();
  const auto before = encodePng(first.get());
  std::vector<Surface> held;
  for (int i = 0; i < 4; ++i) {
    front.position.x += 3;
    held.push_back(draw());
    EXPECT_TRUE(areEqual(held.back(), compositeScreen(root, 0, 100, 100, 1))) << i;
  }
  EXPECT_EQ(encodePng(first.get()), before);
}

TEST_F(ScreenOf, APictureThatNobodyHoldsIsPaintedOn) {
  const cairo_surface_t* const first = draw().get();
  front.position.x += 3;
  EXPECT_EQ(draw().get(), first);
}

TEST_F(ScreenOf, AnotherSizeIsAPictureOfItsOwn) {
  draw();
  Layer* const roots[] = {&root};
  const Surface larger = screen.draw(roots, 0, 200, 200, 2);
  EXPECT_TRUE(areEqual(larger, compositeScreen(root, 0, 200, 200, 2)));
}

TEST_F(ScreenOf, AnimationsAreFollowed) {
  const LayerValues before = front.values();
  front.position = {20, 80};
  front.animateFrom(before, {.start = 0, .duration = 1});
  for (int i = 0; i <= 10; ++i)
    EXPECT_TRUE(areEqual(draw(i / 10.0), compositeScreen(root, i / 10.0, 100, 100, 1))) << i;
}

// Its picture fades out beyond its edges, by what interpolation makes of the last pixel.
TEST_F(ScreenOf, APictureThatIsStretchedIsFollowedToItsLastPixel) {
  root.backgroundColor = {0.5, 0.5, 0.5, 1};
  front.shouldRasterize = true;
  front.setFrame({{20, 20}, {18.3, 18.3}});
  front.transform = scaling(2.9, 2.7);
  for (int i = 0; i < 60; ++i) {
    front.position.x += 0.37;
    front.position.y += i % 7 * 0.21 - 0.6;
    ASSERT_TRUE(areEqual(draw(), compositeScreen(root, 0, 100, 100, 1))) << i;
  }
}

// Layers of every kind, changed at random: what is painted bit by bit is what is painted in one go.
class RandomScreen : public testing::TestWithParam<double> {
 protected:
  static constexpr int side = 60;  // points

  RandomScreen() {
    root.setFrame({{0, 0}, {side, side}});
    root.backgroundColor = {0.2, 0.4, 0.6, 1};
    for (int i = 0; i < 14; ++i) {
      layers.push_back(std::make_unique<Layer>());
      root.addChild(*layers.back());
    }
    for (const auto& layer : layers)
      for (int k = 0; k < 8; ++k) change(*layer);
  }

  int number(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }
  double fraction() { return number(257) / 256.0; }
  Color color() { return {fraction(), fraction(), fraction(), number(3) ? 1 : fraction()}; }
  // Often on whole pixels, as most of a screen is.
  double length(int end) { return number(3) ? number(end) : number(end * 64) / 64.0; }

  void draws(Layer& layer) {
    const Color ink = color();
    layer.setDraw([ink](cairo_t* context, CGSize size) {
      setSource(context, ink);
      cairo_arc(context, size.width / 2, size.height / 2, size.width / 3, 0, 6);
      cairo_fill(context);
    });
  }

  void shows(Layer& layer) {
    const Surface image = makeImage(8 + number(20), 8 + number(20));
    const Context context(image.get());
    setSource(context, color());
    cairo_rectangle(context, 2, 1, 9, 12);
    cairo_fill(context);
    layer.setContents(image, number(2) ? GetParam() : 1 + number(3));
    layer.contentsGravity = static_cast<ContentsGravity>(number(12));
  }

  void change(Layer& layer) {
    switch (number(17)) {
      case 0:
      case 1:
      case 2:
        layer.position = {length(side), length(side)};
        break;
      case 3:
        layer.bounds.size = {length(30), length(30)};
        break;
      case 4:
        layer.bounds.origin = {length(5), length(5)};
        break;
      case 5:
        layer.opacity = number(2) ? 1 : fraction();
        break;
      case 6:
        layer.transform = number(2) ? identityTransform : rotation(fraction());
        break;
      case 7:
        layer.transform = scaling(0.5 + fraction(), 0.5 + fraction());
        break;
      case 8:
        layer.backgroundColor = number(2) ? color() : clearColor;
        break;
      case 9:
        layer.cornerRadius = number(2) ? 0 : length(8);
        break;
      case 10:
        layer.masksToBounds = number(2);
        break;
      case 11:
        layer.borderWidth = number(2) ? 0 : length(4);
        break;
      case 12:
        layer.hidden = number(4) == 0;
        break;
      case 13:
        layer.shadowOpacity = number(3) ? 0 : fraction();
        break;
      case 14:
        layer.shouldRasterize = number(4) == 0;
        break;
      case 15:
        number(2) ? draws(layer) : shows(layer);
        break;
      case 16:
        move(layer);
        break;
    }
    layer.rasterizationScale = GetParam();
  }

  // To another place in the tree.
  void move(Layer& layer) {
    Layer& target = number(2) ? root : *layers[static_cast<std::size_t>(number(14))];
    for (const Layer* above = &target; above; above = above->parent())
      if (above == &layer) return;
    target.insertChild(layer, static_cast<std::size_t>(number(4)));
  }

  std::mt19937 random{7};
  Layer root;
  std::vector<std::unique_ptr<Layer>> layers;
};

TEST_P(RandomScreen, IsAsIfItWerePaintedAnew) {
  PaintedScreen screen;
  Layer* const roots[] = {&root};
  const int pixels = static_cast<int>(side * GetParam());
  Surface held;
  for (int step = 0; step < 500; ++step) {
    // Some layer moves for a while, then others.
    Layer& layer = *layers[static_cast<std::size_t>(number(4) ? step / 20 % 14 : number(14))];
    number(2) ? change(layer) : void(layer.position.x += length(3) - 1);
    const Surface picture = screen.draw(roots, 0, pixels, pixels, GetParam());
    ASSERT_TRUE(areEqual(picture, PaintedScreen().draw(roots, 0, pixels, pixels, GetParam()))) << step;
    if (number(3) == 0) held = picture;
  }
}

INSTANTIATE_TEST_SUITE_P(Scales, RandomScreen, testing::Values(1, 2, 1080 / 414.0));

}  // namespace
}  // namespace sim
