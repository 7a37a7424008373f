// Pictures laid over others between the pixels: as cairo does it.
#include "simulator/quartz/spans.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>

#include "simulator/quartz/affine.hpp"
#include "simulator/quartz/pixels.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace sim {
namespace {

using test::pixelAt;

class Spans : public testing::Test {
 protected:
  int number(int end) { return static_cast<int>(random() % static_cast<unsigned>(end)); }

  // Premultiplied; `alpha` from 0 to 255.
  std::uint32_t pixel(int alpha) {
    const auto part = [&] { return static_cast<std::uint32_t>(number(alpha + 1)); };
    return static_cast<std::uint32_t>(alpha) << 24 | part() << 16 | part() << 8 | part();
  }

  // Opaque within, with soft edges of some width, and clear rows, as a card with its shadow.
  Surface card(int width, int height, int edge) {
    Surface image = makeImage(width, height);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) {
        const int depth = std::min(std::min(x, width - 1 - x), std::min(y, height - 1 - y)) - number(2);
        set(image, x, y, pixel(depth >= edge ? 255 : depth < 1 ? 0 : 255 * depth / edge));
      }
    return image;
  }

  static void set(const Surface& image, int x, int y, std::uint32_t value) {
    cairo_surface_flush(image.get());
    unsigned char* row = cairo_image_surface_get_data(image.get()) +
                         std::ptrdiff_t{y} * cairo_image_surface_get_stride(image.get());
    std::memcpy(row + 4 * x, &value, 4);
    cairo_surface_mark_dirty(image.get());
  }

  Surface ground() {
    Surface image = makeImage(40, 30);
    for (int y = 0; y < 30; ++y)
      for (int x = 0; x < 40; ++x) set(image, x, y, pixel(number(2) ? 255 : number(256)));
    return image;
  }

  void expectAsByCairo(const Surface& image, const CGAffineTransform& place) {
    const Surface expected = ground();
    const Surface painted = makeImage(40, 30);
    std::memcpy(cairo_image_surface_get_data(painted.get()), cairo_image_surface_get_data(expected.get()),
                bytesOf(expected.get()));
    const PixelRect rect{number(20), number(15), 1 + number(20), 1 + number(15)};
    {
      const Context context(expected.get());
      cairo_rectangle(context, rect.x, rect.y, rect.width, rect.height);
      cairo_clip(context);
      applyTransform(context, place);
      cairo_set_source_surface(context, image.get(), 0, 0);
      cairo_paint(context);
    }
    const Context context(painted.get());
    applyTransform(context, place);
    const auto sampling = samplingOf(context, image.get(), rect);
    ASSERT_TRUE(sampling);
    layOver(painted.get(), rect, image.get(), Runs(image.get()), *sampling);
    for (int row = 0; row < 30; ++row)
      for (int column = 0; column < 40; ++column)
        ASSERT_EQ(pixelAt(painted.get(), column, row), pixelAt(expected.get(), column, row))
            << " at " << column << ", " << row << " scaled by " << place.a << ", " << place.d
            << " shifted by " << place.tx << ", " << place.ty;
  }

  std::mt19937 random{5};
};

// The interpolation of the library below cairo has 128 steps; all of them, and places beyond every edge.
TEST_F(Spans, MixPixelsAsCairoDoes) {
  for (int round = 0; round < 800; ++round) {
    const double x = number(4) ? number(40) - 20 : number(40 * 1024) / 1024.0 - 20;
    const double y = number(4) == 0 ? number(30) - 15 : number(30 * 1024) / 1024.0 - 15;
    expectAsByCairo(card(1 + number(50), 1 + number(40), number(9)), {1, 0, 0, 1, x, y});
  }
}

// As the panel is shown on a Plus, whose pictures are of three pixels a point; and others.
TEST_F(Spans, TakePixelsAsCairoDoesAtAnotherScale) {
  for (int round = 0; round < 1500; ++round) {
    const double usual = 1080 / 414.0 / 3, x = number(2) ? usual : 0.76 + number(2000) / 1000.0;
    const double y = number(3) ? x : 0.76 + number(2000) / 1000.0;
    expectAsByCairo(card(1 + number(70), 1 + number(60), number(9)),
                    {x, 0, 0, y, number(40 * 1024) / 1024.0 - 20, number(30 * 1024) / 1024.0 - 15});
  }
}

// Where many rows and pixels are alike, what was mixed of one serves the next.
TEST_F(Spans, OfPlainCardsAreAsByCairo) {
  for (int round = 0; round < 800; ++round) {
    const Surface image = makeImage(1 + number(90), 1 + number(60));
    const Context context(image.get());
    for (int i = number(4); i >= 0; --i) {
      cairo_set_source_rgba(context, number(2), 1, number(2), number(3) ? 1 : 0.5);
      cairo_rectangle(context, number(30), number(30), number(90), number(60));
      cairo_fill(context);
    }
    const double scale = number(2) ? 1 : 0.8 + number(2200) / 1000.0;
    expectAsByCairo(image,
                    {scale, 0, 0, scale, number(40) - 20 + number(2) * 0.37, number(3000) / 100.0 - 15});
  }
}

// Each is alike in itself, and where the picture becomes smaller the rows between two of them may be left
// out.
TEST_F(Spans, OfBandsBelowEachOtherAreAsByCairo) {
  const Surface image = makeImage(36, 30);
  const Context context(image.get());
  for (const int band : {0, 1, 2}) {
    cairo_set_source_rgba(context, band == 0, band == 1, band == 2, 0.5);
    cairo_rectangle(context, 2, 10 * band, 30, 10);
    cairo_fill(context);
  }
  for (int round = 0; round < 40; ++round) expectAsByCairo(image, {0.8, 0, 0, 0.8, 1.3, number(300) / 100.0});
}

// As a shadow above a card and below it: plain from side to side, and every row other than the next.
TEST_F(Spans, OfRowsThatArePlainAndUnlikeAreAsByCairo) {
  for (int round = 0; round < 400; ++round) {
    const int width = 36 + number(50), edge = number(6);
    const Surface image = makeImage(width, 30);
    for (int y = 0; y < 30; ++y) {
      const std::uint32_t all = pixel(number(3) ? number(256) : 255 * number(2));
      for (int x = edge; x < width - edge; ++x) set(image, x, y, all);
    }
    const double scale = number(2) ? 1 : 0.8 + number(2200) / 1000.0;
    expectAsByCairo(image, {scale, 0, 0, scale, number(300) / 100.0 - 2, number(3000) / 100.0 - 15});
  }
}

TEST_F(Spans, AreNotForPicturesThatAreTurnedOrMirroredOrMuchSmaller) {
  const Surface image = card(20, 20, 2), target = makeImage(40, 30);
  for (const CGAffineTransform& t : {rotation(0.1), scaling(-1, 1), scaling(1, -1), scaling(0.7, 1)}) {
    const Context context(target.get());
    applyTransform(context, t);
    EXPECT_FALSE(samplingOf(context, image.get(), {0, 0, 40, 30}));
  }
}

}  // namespace
}  // namespace sim
