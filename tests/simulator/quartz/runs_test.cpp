// What is plain about a picture.
#include "simulator/quartz/runs.hpp"

#include <gtest/gtest.h>

#include "simulator/quartz/color.hpp"

namespace sim {
namespace {

constexpr std::uint32_t red = 0xffff0000;

Surface picture(int width, int height, const PixelRect& card, const Color& color = {1, 0, 0, 1}) {
  Surface image = makeImage(width, height);
  const Context context(image.get());
  setSource(context, color);
  cairo_rectangle(context, card.x, card.y, card.width, card.height);
  cairo_fill(context);
  return image;
}

const Runs::Kind& kindOf(const Runs& runs, int row) { return runs.kind(runs.kindOf(row)); }

TEST(Runs, AreOfOneColourInEachOfTwoRows) {
  const Runs runs(picture(140, 4, {40, 1, 60, 2}).get());
  EXPECT_EQ(kindOf(runs, 1).runs,
            (std::vector<sim::Run>{{0, 40, 0, 0}, {40, 100, red, red}, {100, 140, 0, 0}}));
  EXPECT_EQ(kindOf(runs, 2).runs,
            (std::vector<sim::Run>{{0, 40, 0, 0}, {40, 100, red, 0}, {100, 140, 0, 0}}));
}

TEST(Runs, AreNoShorterThanItIsWorth) {
  const int least = Runs::shortest;
  EXPECT_TRUE(kindOf(Runs(picture(least - 1, 2, {0, 0, least - 1, 2}).get()), 0).runs.empty());
  EXPECT_EQ(kindOf(Runs(picture(least, 2, {0, 0, least, 2}).get()), 0).runs,
            (std::vector<sim::Run>{{0, least, red, red}}));
}

TEST(Runs, AreOfAnyColour) {
  const Runs runs(picture(100, 2, {0, 0, 100, 2}, {1, 0, 0, 0.5}).get());
  EXPECT_EQ(kindOf(runs, 0).runs, (std::vector<sim::Run>{{0, 100, 0x80800000, 0x80800000}}));
}

TEST(Runs, AboveAndBelowThePictureAreThoseOfClearPixels) {
  const Runs runs(picture(100, 2, {0, 0, 50, 2}).get());
  for (const int row : {-1, 1})
    EXPECT_EQ(kindOf(runs, row).runs,
              (std::vector<sim::Run>{{0, 50, row < 0 ? 0 : red, row < 0 ? red : 0}, {50, 100, 0, 0}}))
        << row;
  EXPECT_FALSE(runs.has(-2));
  EXPECT_FALSE(runs.has(2));
}

TEST(Runs, AreSharedByRowsThatAreAlike) {
  const Runs runs(picture(100, 40, {20, 10, 60, 20}).get());
  EXPECT_EQ(runs.kindOf(0), runs.kindOf(8));
  EXPECT_EQ(runs.kindOf(10), runs.kindOf(28));
  EXPECT_NE(runs.kindOf(9), runs.kindOf(10));
}

TEST(Runs, TellWhereARowIsLikeTheNext) {
  const Surface image = picture(100, 3, {20, 0, 60, 3});
  auto* const second = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(image.get()) +
                                                        cairo_image_surface_get_stride(image.get()));
  second[40] = second[50] = 0;
  const Runs runs(image.get());
  for (const int row : {0, 1}) {
    EXPECT_TRUE(runs.isLikeNext(row, -5, 40)) << row;
    EXPECT_FALSE(runs.isLikeNext(row, 0, 41)) << row;
    EXPECT_FALSE(runs.isLikeNext(row, 45, 46)) << row;
    EXPECT_FALSE(runs.isLikeNext(row, 50, 105)) << row;
    EXPECT_TRUE(runs.isLikeNext(row, 51, 105)) << row;
  }
  EXPECT_TRUE(runs.isLikeNext(-1, 0, 20));  // clear pixels are above the first row
  EXPECT_FALSE(runs.isLikeNext(-1, 0, 21));
  EXPECT_TRUE(Runs(picture(100, 2, {20, 0, 60, 2}).get()).isLikeNext(0, -5, 105));
}

TEST(Runs, TellTheLongestOpaqueStretch) {
  const Surface image = makeImage(20, 1);
  auto* const pixels = reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(image.get()));
  for (const int x : {2, 4, 5, 6, 9}) pixels[x] = 0xff000000 + static_cast<unsigned>(x);
  cairo_surface_mark_dirty(image.get());
  const Runs alone(image.get());
  EXPECT_EQ(kindOf(alone, 0).opaqueBegin, kindOf(alone, 0).opaqueEnd);
  const Surface twice = makeImage(20, 2);
  const Context context(twice.get());
  for (const int y : {0, 1}) {
    cairo_set_source_surface(context, image.get(), 0, y);
    cairo_paint(context);
  }
  cairo_surface_flush(twice.get());
  const Runs runs(twice.get());
  EXPECT_EQ(kindOf(runs, 0).opaqueBegin, 4);
  EXPECT_EQ(kindOf(runs, 0).opaqueEnd, 7);
}

TEST(Runs, TellWhatIsOpaqueOfACard) {
  EXPECT_EQ(Runs(picture(100, 40, {20, 10, 60, 20}).get()).opaque(), (PixelRect{20, 10, 60, 20}));
  EXPECT_TRUE(isEmpty(Runs(picture(100, 40, {20, 10, 60, 20}, {1, 0, 0, 0.5}).get()).opaque()));
}

}  // namespace
}  // namespace sim
