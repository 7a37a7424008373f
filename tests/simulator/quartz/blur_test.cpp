// The blur of shadows.
#include "simulator/quartz/blur.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace sim {
namespace {

// Rows like each other but for some, as a card has them.
Surface picture(int width, int height, unsigned seed) {
  std::mt19937 random(seed);
  Surface image = makeImage(width, height);
  unsigned char* data = cairo_image_surface_get_data(image.get());
  std::vector<std::uint32_t> row(static_cast<std::size_t>(width));
  for (int y = 0; y < height; ++y) {
    if (random() % 3 == 0)
      for (std::uint32_t& pixel : row) pixel = random() % 2 ? 0xff000000 : random() % 256 << 24;
    std::copy(row.begin(), row.end(),
              reinterpret_cast<std::uint32_t*>(data + y * cairo_image_surface_get_stride(image.get())));
  }
  cairo_surface_mark_dirty(image.get());
  return image;
}

int at(const Surface& image, int x, int y) {
  const unsigned char* row =
      cairo_image_surface_get_data(image.get()) + y * cairo_image_surface_get_stride(image.get());
  return cairo_image_surface_get_format(image.get()) == CAIRO_FORMAT_A8
             ? row[x]
             : static_cast<int>(reinterpret_cast<const std::uint32_t*>(row)[x] >> 24);
}

// Of each pixel the average of those in a box around it, three times over, straight from the definition.
double average(const Surface& image, int x, int y, int half, int times) {
  const int width = cairo_image_surface_get_width(image.get());
  const int height = cairo_image_surface_get_height(image.get());
  std::vector<double> now(static_cast<std::size_t>(width * height)), next(now.size());
  for (int i = 0; i < width * height; ++i) now[static_cast<std::size_t>(i)] = at(image, i % width, i / width);
  for (; times > 0; --times) {
    for (int i = 0; i < width * height; ++i) {
      double sum = 0;
      for (int b = i / width - half; b <= i / width + half; ++b)
        for (int a = i % width - half; a <= i % width + half; ++a)
          if (a >= 0 && b >= 0 && a < width && b < height)
            sum += now[static_cast<std::size_t>(b * width + a)];
      next[static_cast<std::size_t>(i)] = sum / ((2 * half + 1) * (2 * half + 1));
    }
    now = next;
  }
  return now[static_cast<std::size_t>(y * width + x)];
}

// Boxes three pixels wide have the variance 2/3, and three of them that of this deviation.
const double threeBoxesOfThree = std::sqrt(2.0);

TEST(Blur, IsThatOfThreeBoxes) {
  for (const auto& [width, height] : {std::pair(17, 13), {1, 9}, {9, 1}, {2, 2}}) {
    const Surface image = picture(width, height, 3);
    const Surface blurred = blurredAlpha(image.get(), threeBoxesOfThree);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x)
        ASSERT_NEAR(at(blurred, x, y), average(image, x, y, 1, 3), 0.51) << x << " " << y;
  }
}

// Rows of a card that are farther from its ends than the blur reaches, of which there are more or fewer.
TEST(Blur, IsThatOfThreeBoxesInTheMiddleOfACard) {
  constexpr int width = 9, above = 5, below = 3;
  for (const int plain : {1, 6, 7, 8, 9, 30}) {
    const int height = above + plain + below;
    const Surface image = picture(width, height, 5);
    auto* const first =
        cairo_image_surface_get_data(image.get()) + above * cairo_image_surface_get_stride(image.get());
    for (int i = 1; i < plain; ++i)
      std::copy_n(first, cairo_image_surface_get_stride(image.get()),
                  first + i * cairo_image_surface_get_stride(image.get()));
    const Surface blurred = blurredAlpha(image.get(), threeBoxesOfThree);
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x)
        ASSERT_NEAR(at(blurred, x, y), average(image, x, y, 1, 3), 0.51) << x << " " << y << " of " << plain;
  }
}

TEST(Blur, OfEachShapeAndDeviationIsItsOwn) {
  std::vector<Surface> first;
  const auto blurOf = [](int i) {
    return blurredAlpha(picture(12, 10, static_cast<unsigned>(i / 2)).get(), i % 2 ? 1 : threeBoxesOfThree);
  };
  for (int i = 0; i < 6; ++i) first.push_back(blurOf(i));
  for (int i = 5; i >= 0; --i) {
    const Surface again = blurOf(i);
    for (int y = 0; y < 10; ++y)
      for (int x = 0; x < 12; ++x) ASSERT_EQ(at(again, x, y), at(first[static_cast<std::size_t>(i)], x, y));
    EXPECT_EQ(blurOf(i), again);
  }
  EXPECT_NE(at(first[0], 5, 5), at(first[1], 5, 5));
}

}  // namespace
}  // namespace sim
