// What a page gets of a picture: the tiles that are wanted, in one compressed sheet.
#include "simulator/serve/frame.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/simulator/serve/pictures.hpp"
#include "tests/simulator/serve/shown_frame.hpp"

namespace {

using sim::serve::Codec;
using sim::serve::Tiles;
using test::ShownFrame;

constexpr int width = 150, height = 130;  // tiles: three across, three down, small ones at the edges
using Places = std::vector<std::pair<int, int>>;

const sim::Surface& picture() {
  static const sim::Surface made = test::colourfulPicture(width, height);
  return made;
}

// The tiles at these columns and rows.
Tiles tilesAt(const Places& places) {
  const sim::Surface before = test::colourfulPicture(width, height);
  sim::Region region;
  for (const auto& [column, row] : places) {
    test::paint(before, column * 64, row * 64, 0);
    region.add({column * 64, row * 64, 1, 1});
  }
  return Tiles::changed(before.get(), picture().get(), region);
}

std::string encoded(const Places& places, Codec codec = Codec::webp) {
  return sim::serve::encodeFrame(0x1020304, picture().get(), {75.4, 64.6}, tilesAt(places), codec);
}

ShownFrame frameOf(const Places& places, Codec codec = Codec::webp) {
  return test::readFrame(encoded(places, codec));
}

// Of a pixel of the picture; beside it, of the nearest.
std::uint32_t expected(int column, int row, int x, int y) {
  return test::colourAt(picture(), std::min(column * 64 + x, width - 1), std::min(row * 64 + y, height - 1));
}

TEST(Frame, BeginsWithWhatItIs) {
  EXPECT_EQ(encoded({{2, 1}}).substr(0, 20),
            std::string("\4\3\2\1\x96\0\x82\0\x4b\0\x41\0\1\x40\1\0\1\0\2\1", 20));
}

TEST(Frame, TellsWhereEachTileLies) {
  const Places places{{1, 0}, {0, 1}, {2, 1}, {1, 2}};
  EXPECT_EQ(frameOf(places).places, places);
}

TEST(Frame, HasAsManyTilesSideBySideAsThePictureAtMost) {
  const auto shapeOf = [](const Places& places) {
    const ShownFrame frame = frameOf(places);
    return std::vector{frame.across, frame.sheetWidth, frame.sheetHeight};
  };
  EXPECT_EQ(shapeOf({{0, 0}}), (std::vector{1, 64, 64}));
  EXPECT_EQ(shapeOf({{0, 0}, {0, 1}}), (std::vector{2, 128, 64}));
  EXPECT_EQ(shapeOf({{0, 0}, {0, 1}, {0, 2}}), (std::vector{3, 192, 64}));
  EXPECT_EQ(shapeOf({{0, 0}, {0, 1}, {0, 2}, {1, 2}}), (std::vector{3, 192, 128}));
}

TEST(Frame, ThatIsExactHasEveryPixelAndTheEdgesAgainBesideSmallTiles) {
  const ShownFrame frame = frameOf({{0, 0}, {1, 0}, {2, 0}, {0, 1}, {1, 1}, {2, 1}, {0, 2}, {1, 2}, {2, 2}});
  ASSERT_EQ(frame.codec, test::exact);
  ASSERT_EQ(frame.places.size(), 9u);
  for (std::size_t i = 0; i < 9; ++i)
    for (int y = 0; y < 64; ++y)
      for (int x = 0; x < 64; ++x)
        ASSERT_EQ(frame.pixel(i, x, y), expected(frame.places[i].first, frame.places[i].second, x, y))
            << i << ": " << x << " " << y;
}

TEST(Frame, ThatIsALikenessIsNearToEveryPixel) {
  const sim::Surface plain = test::plainPicture(width, height);
  const Tiles all = Tiles::changed(nullptr, plain.get(), {});
  const ShownFrame frame =
      test::readFrame(sim::serve::encodeFrame(1, plain.get(), {75, 65}, all, Codec::jpeg));
  ASSERT_EQ(frame.codec, test::likeness);
  ASSERT_EQ(frame.sheetWidth, 192);
  ASSERT_EQ(frame.sheetHeight, 192);
  for (const std::uint32_t pixel : frame.sheet)
    for (int shift = 0; shift < 24; shift += 8)
      ASSERT_NEAR(int(pixel >> shift & 0xff), int(0xff204060 >> shift & 0xff), 3);
}

TEST(Frame, ThatIsALikenessHasSmallTilesWithoutAnEdgeOfAnotherColour) {
  const ShownFrame frame = frameOf({{0, 0}, {2, 2}}, Codec::jpeg);
  const std::uint32_t corner = expected(2, 2, 21, 1), found = frame.pixel(1, 60, 60);
  for (int shift = 0; shift < 24; shift += 8)
    EXPECT_NEAR(int(found >> shift & 0xff), int(corner >> shift & 0xff), 40);
}

}  // namespace
