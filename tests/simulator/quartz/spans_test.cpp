// Pictures laid over others between the pixels: as cairo does it.
#include "simulator/quartz/spans.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

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

  std::mt19937 random{5};
};

TEST_F(Spans, TellInkAndTheLongestOpaqueStretch) {
  const Surface image = makeImage(8, 2);
  for (const int x : {2, 4, 5, 6}) set(image, x, 1, 0xff000000);
  set(image, 7, 1, 0x10000000);
  const auto spans = spansOf(image.get());
  EXPECT_EQ(spans[0].inkBegin, 8);
  EXPECT_EQ(spans[0].inkEnd, 0);
  EXPECT_EQ(spans[1].inkBegin, 2);
  EXPECT_EQ(spans[1].opaqueBegin, 4);
  EXPECT_EQ(spans[1].opaqueEnd, 7);
  EXPECT_EQ(spans[1].inkEnd, 8);
}

// The interpolation of the library below cairo has 128 steps; all of them, and places beyond every edge.
TEST_F(Spans, MixPixelsAsCairoDoes) {
  for (int round = 0; round < 800; ++round) {
    const Surface image = card(1 + number(50), 1 + number(40), number(9));
    const Surface expected = ground();
    const Surface painted = makeImage(40, 30);
    for (int y = 0; y < 30; ++y)
      std::memcpy(cairo_image_surface_get_data(painted.get()) + y * 160,
                  cairo_image_surface_get_data(expected.get()) + y * 160, 160);
    const PixelRect rect{number(20), number(15), 1 + number(20), 1 + number(15)};
    const double x = number(4) ? number(40) - 20 : number(40 * 1024) / 1024.0 - 20;
    const double y = number(4) == 0 ? number(30) - 15 : number(30 * 1024) / 1024.0 - 15;
    {
      const Context context(expected.get());
      cairo_rectangle(context, rect.x, rect.y, rect.width, rect.height);
      cairo_clip(context);
      cairo_translate(context, x, y);
      cairo_set_source_surface(context, image.get(), 0, 0);
      cairo_paint(context);
    }
    layOver(painted.get(), rect, image.get(), spansOf(image.get()),
            {static_cast<int>(-x * 65536), static_cast<int>(-y * 65536)});
    for (int row = 0; row < 30; ++row)
      for (int column = 0; column < 40; ++column)
        ASSERT_EQ(pixelAt(painted.get(), column, row), pixelAt(expected.get(), column, row))
            << "round " << round << " at " << column << ", " << row << " shifted by " << x << ", " << y;
  }
}

}  // namespace
}  // namespace sim
