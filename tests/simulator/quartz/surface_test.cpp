// Images as PNG files, and the blur of shadows.
#include "simulator/quartz/surface.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "simulator/quartz/blur.hpp"
#include "simulator/quartz/color.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace sim {
namespace {

using test::Pixel;
using test::pixelAt;

// Colour type of a PNG: byte 25, in its first chunk.
constexpr int colorTypeOffset = 25, rgbType = 2, rgbaType = 6;

Surface filled(int width, int height, const Color& color) {
  Surface image = makeImage(width, height);
  const Context context(image.get());
  setSource(context, color);
  cairo_paint(context);
  return image;
}

TEST(Image, IsClearAtFirst) { EXPECT_EQ(pixelAt(makeImage(3, 2).get(), 2, 1), (Pixel{0, 0, 0, 0})); }

TEST(Image, TooLargeIsRefused) { EXPECT_THROW(makeImage(40000, 10), std::runtime_error); }

TEST(Png, OfOpaquePictureHasNoAlphaChannel) {
  EXPECT_EQ(encodePng(filled(4, 4, rgb(0x336699)).get()).at(colorTypeOffset), rgbType);
}

TEST(Png, OfTranslucentPictureKeepsItsAlpha) {
  const Surface image = filled(4, 4, whiteColor);
  {
    const Context context(image.get());
    cairo_set_operator(context, CAIRO_OPERATOR_CLEAR);
    cairo_rectangle(context, 3, 3, 1, 1);
    cairo_fill(context);
  }
  EXPECT_EQ(encodePng(image.get()).at(colorTypeOffset), rgbaType);
}

TEST(Png, SamePixelsGiveTheSameBytes) {
  EXPECT_EQ(encodePng(filled(9, 7, rgb(0x123456)).get()), encodePng(filled(9, 7, rgb(0x123456)).get()));
}

TEST(Png, ReadsBackWhatWasWritten) {
  const std::filesystem::path file =
      std::filesystem::path(testing::TempDir()) / ("quartz-surface-" + std::to_string(getpid()) + ".png");
  writePng(filled(5, 3, rgb(0x204060)).get(), file);
  const Surface image = readPng(file);
  std::filesystem::remove(file);
  EXPECT_EQ(cairo_image_surface_get_width(image.get()), 5);
  EXPECT_EQ(cairo_image_surface_get_height(image.get()), 3);
  EXPECT_EQ(pixelAt(image.get(), 4, 2).blue, 0x60);
}

TEST(Png, FailuresNameTheFile) {
  const std::string missing = "/nowhere/at/all.png";
  for (const bool writing : {false, true}) {
    try {
      if (writing) {
        writePng(makeImage(1, 1).get(), missing);
      } else {
        readPng(missing);
      }
      FAIL();
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(missing), std::string::npos);
    }
  }
}

int alphaAt(cairo_surface_t* a8, int x, int y) {
  return cairo_image_surface_get_data(a8)[y * cairo_image_surface_get_stride(a8) + x];
}

Surface square(int side, int from, int to) {
  Surface image = makeImage(side, side);
  const Context context(image.get());
  setSource(context, blackColor);
  cairo_rectangle(context, from, from, to - from, to - from);
  cairo_fill(context);
  return image;
}

TEST(Blur, WithoutDeviationIsTheAlphaItself) {
  const Surface soft = blurredAlpha(square(9, 3, 6).get(), 0);
  EXPECT_EQ(alphaAt(soft.get(), 4, 4), 255);
  EXPECT_EQ(alphaAt(soft.get(), 2, 4), 0);
}

// Across a straight edge a Gaussian's blur is its distribution function.
TEST(Blur, FollowsTheGaussianAcrossAnEdge) {
  const double deviation = 6;
  const Surface soft = blurredAlpha(square(160, 40, 120).get(), deviation);
  for (int x = 20; x < 60; ++x) {
    const double expected = 255 * 0.5 * std::erfc((40 - (x + 0.5)) / (deviation * std::sqrt(2)));
    EXPECT_NEAR(alphaAt(soft.get(), x, 80), expected, 6) << x;
  }
}

TEST(Blur, KeepsTheAmountOfInkWithinItsReach) {
  const double deviation = 4;
  const int margin = static_cast<int>(std::ceil(blurReach(deviation)));
  const int side = 10 + 2 * margin;
  const Surface soft = blurredAlpha(square(side, margin, margin + 10).get(), deviation);
  double sum = 0;
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) sum += alphaAt(soft.get(), x, y) / 255.0;
  }
  EXPECT_NEAR(sum, 100, 1);
}

}  // namespace
}  // namespace sim
