// Which tiles of a picture have changed.
#include <gtest/gtest.h>

#include "simulator/serve/frame.hpp"
#include "tests/simulator/serve/pictures.hpp"

namespace {

using sim::PixelRect;
using sim::Region;
using sim::serve::Tiles;
using test::paint;
using test::plainPicture;

using Rectangles = std::vector<PixelRect>;

constexpr int width = 150, height = 130;  // two and a bit each way
constexpr std::uint32_t other = 0xffffffff;

Region regionOf(PixelRect rect) {
  Region region;
  region.add(rect);
  return region;
}

const Region& everywhere() {
  static const Region region = regionOf({0, 0, width, height});
  return region;
}

// Of two pictures that differ in these pixels.
Rectangles changedBy(const std::vector<std::pair<int, int>>& pixels, const Region& within = everywhere()) {
  const sim::Surface before = plainPicture(width, height), now = plainPicture(width, height);
  for (const auto& [x, y] : pixels) paint(now, x, y, other);
  return Tiles::changed(before.get(), now.get(), within).rectangles();
}

const Rectangles all{{0, 0, 64, 64},    {64, 0, 64, 64}, {128, 0, 22, 64}, {0, 64, 64, 64},  {64, 64, 64, 64},
                     {128, 64, 22, 64}, {0, 128, 64, 2}, {64, 128, 64, 2}, {128, 128, 22, 2}};

TEST(Tiles, AreNoneWhereNothingDiffers) { EXPECT_EQ(changedBy({}), Rectangles()); }

TEST(Tiles, AreThoseWithAPixelThatDiffers) {
  EXPECT_EQ(changedBy({{0, 0}}), (Rectangles{{0, 0, 64, 64}}));
  EXPECT_EQ(changedBy({{63, 63}}), (Rectangles{{0, 0, 64, 64}}));
  EXPECT_EQ(changedBy({{64, 63}}), (Rectangles{{64, 0, 64, 64}}));
  EXPECT_EQ(changedBy({{63, 64}}), (Rectangles{{0, 64, 64, 64}}));
}

TEST(Tiles, AreSmallerAtTheRightAndLowerEdge) {
  EXPECT_EQ(changedBy({{149, 0}}), (Rectangles{{128, 0, 22, 64}}));
  EXPECT_EQ(changedBy({{0, 129}}), (Rectangles{{0, 128, 64, 2}}));
  EXPECT_EQ(changedBy({{149, 129}}), (Rectangles{{128, 128, 22, 2}}));
}

TEST(Tiles, ComeRowByRow) {
  EXPECT_EQ(changedBy({{149, 0}, {0, 129}, {70, 70}, {0, 70}}),
            (Rectangles{{128, 0, 22, 64}, {0, 64, 64, 64}, {64, 64, 64, 64}, {0, 128, 64, 2}}));
}

TEST(Tiles, AreLookedAtWithinTheRegionAlone) {
  const Region region = regionOf({10, 20, 30, 25});  // to 40 and 45
  for (const auto& pixel : {std::pair(9, 20), std::pair(10, 19), std::pair(40, 44), std::pair(39, 45)})
    EXPECT_EQ(changedBy({pixel}, region), Rectangles()) << pixel.first << " " << pixel.second;
  for (const auto& pixel : {std::pair(10, 20), std::pair(39, 20), std::pair(10, 44), std::pair(39, 44)})
    EXPECT_EQ(changedBy({pixel}, region), (Rectangles{{0, 0, 64, 64}})) << pixel.first << " " << pixel.second;
}

TEST(Tiles, AreLookedAtInEveryRectangleOfTheRegion) {
  Region region = regionOf({0, 0, 5, 5});
  region.add({130, 100, 5, 5});
  EXPECT_EQ(changedBy({{70, 70}, {132, 102}}, region), (Rectangles{{128, 64, 22, 64}}));
}

TEST(Tiles, OfNoRegionAreNone) { EXPECT_EQ(changedBy({{3, 3}}, Region()), Rectangles()); }

TEST(Tiles, AreAllWithoutAnEarlierPicture) {
  EXPECT_EQ(Tiles::changed(nullptr, plainPicture(width, height).get(), Region()).rectangles(), all);
}

TEST(Tiles, AreAllWhereTheEarlierPictureHadAnotherSize) {
  const sim::Surface now = plainPicture(width, height);
  for (const auto& [w, h] : {std::pair(width - 1, height), std::pair(width, height + 1)})
    EXPECT_EQ(Tiles::changed(plainPicture(w, h).get(), now.get(), Region()).rectangles(), all);
}

TEST(Tiles, AreNoMoreThanThePictureNeeds) {
  const auto countOf = [](int w, int h) {
    return Tiles::changed(nullptr, plainPicture(w, h).get(), Region()).rectangles().size();
  };
  EXPECT_EQ(countOf(64, 64), 1u);
  EXPECT_EQ(countOf(65, 64), 2u);
  EXPECT_EQ(countOf(64, 129), 3u);
  EXPECT_EQ(countOf(128, 128), 4u);
  EXPECT_EQ(Tiles(128, 1).across(), 2);
  EXPECT_EQ(Tiles(129, 1).across(), 3);
}

// As many as fill the last word of memory that they are noted in, behind which nothing is theirs.
TEST(Tiles, AreNotedWithinTheirMemory) {
  const sim::Surface picture = plainPicture(512, 512);
  Tiles tiles = Tiles::changed(nullptr, picture.get(), Region());
  EXPECT_EQ(tiles.count(), 64);
  tiles.add(tiles.none());
  EXPECT_EQ(tiles.rectangles().size(), 64u);
  tiles.remove(tiles.none());
  EXPECT_EQ(tiles.count(), 64);
  EXPECT_FALSE(Tiles::changed(picture.get(), picture.get(), Region()).any());
}

Tiles tilesOf(const std::vector<std::pair<int, int>>& pixels) {
  const sim::Surface before = plainPicture(width, height), now = plainPicture(width, height);
  for (const auto& [x, y] : pixels) paint(now, x, y, other);
  return Tiles::changed(before.get(), now.get(), everywhere());
}

TEST(Tiles, AreCounted) {
  EXPECT_FALSE(tilesOf({}).any());
  EXPECT_EQ(tilesOf({}).count(), 0);
  EXPECT_TRUE(tilesOf({{149, 129}}).any());
  EXPECT_EQ(tilesOf({{0, 0}, {70, 70}, {149, 129}}).count(), 3);
}

TEST(Tiles, AreAdded) {
  Tiles tiles = tilesOf({{0, 0}, {70, 0}});
  tiles.add(tilesOf({{70, 0}, {149, 129}}));
  EXPECT_EQ(tiles.rectangles(), (Rectangles{{0, 0, 64, 64}, {64, 0, 64, 64}, {128, 128, 22, 2}}));
}

TEST(Tiles, AreTakenAway) {
  Tiles tiles = tilesOf({{0, 0}, {70, 0}, {149, 129}});
  tiles.remove(tilesOf({{0, 0}, {149, 129}, {0, 129}}));
  EXPECT_EQ(tiles.rectangles(), (Rectangles{{64, 0, 64, 64}}));
}

TEST(Tiles, OfAnotherPictureSayNothing) {
  Tiles tiles = tilesOf({{0, 0}});
  for (const auto& [w, h] : {std::pair(width - 1, height), std::pair(width, height - 1)}) {
    const Tiles others = Tiles::changed(nullptr, plainPicture(w, h).get(), Region());
    tiles.add(others);
    EXPECT_EQ(tiles.rectangles(), (Rectangles{{0, 0, 64, 64}}));
    tiles.remove(others);
    EXPECT_EQ(tiles.rectangles(), (Rectangles{{0, 0, 64, 64}}));
  }
}

}  // namespace
