// What a page is shown of each picture, and when.
#include "simulator/serve/viewer.hpp"

#include <gtest/gtest.h>

#include "simulator/uikit/base/configuration.hpp"
#include "tests/simulator/serve/pictures.hpp"
#include "tests/simulator/serve/shown_frame.hpp"

namespace test {
namespace {

using sim::serve::Viewer;

constexpr int width = 256, height = 256;  // sixteen tiles
constexpr bool moving = true, still = false;

class AViewer : public testing::Test {
 protected:
  AViewer() {
    sim::uikit::Configuration phone;
    phone.size = {128, 128};
    sim::uikit::configure(phone);
  }
  // A picture that differs from the first one in so many tiles.
  static sim::Surface picture(int tiles, std::uint32_t colour = 0xffffffff) {
    sim::Surface made = plainPicture(width, height);
    for (int i = 0; i < tiles; ++i) paint(made, i % 4 * 64, i / 4 * 64, colour);
    return made;
  }
  // What it is sent of a picture that may differ anywhere; none when it is sent nothing.
  std::optional<ShownFrame> shown(const sim::Surface& picture, bool isMoving) {
    viewer.miss(everywhere());
    const Viewer::Next next = viewer.show(picture, isMoving);
    isChange = next.isChange;
    if (!next.message) return std::nullopt;
    return readFrame(*next.message);
  }
  static sim::Region everywhere() {
    sim::Region region;
    region.add({0, 0, width, height});
    return region;
  }

  Viewer viewer;
  bool isChange = false;
};

TEST_F(AViewer, IsShownAllOfTheFirstPictureExactly) {
  const auto frame = shown(picture(0), moving);
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->number, 1u);
  EXPECT_EQ(frame->codec, exact);
  EXPECT_EQ(frame->places.size(), 16u);
  EXPECT_EQ(frame->pointsAcross, 128);
  EXPECT_TRUE(isChange);
  EXPECT_FALSE(viewer.isInexact());
}

TEST_F(AViewer, IsNotShownWhatItHasSeen) {
  shown(picture(0), moving);
  EXPECT_FALSE(shown(picture(0), moving));
  EXPECT_FALSE(isChange);
  EXPECT_FALSE(shown(picture(0), still));
}

TEST_F(AViewer, IsShownWhatChangesLittleExactlyWhileItMoves) {
  shown(picture(0), moving);
  const auto frame = shown(picture(9), moving);
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->number, 2u);
  EXPECT_EQ(frame->codec, exact);
  EXPECT_EQ(frame->places.size(), 9u);
  EXPECT_FALSE(viewer.isInexact());
}

TEST_F(AViewer, IsShownALikenessOfWhatChangesMuch) {
  shown(picture(0), moving);
  const auto frame = shown(picture(10), moving);
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->codec, likeness);
  EXPECT_EQ(frame->places.size(), 10u);
  EXPECT_TRUE(isChange);
  EXPECT_TRUE(viewer.isInexact());
}

TEST_F(AViewer, IsShownWhatItHasALikenessOfExactlyWhenItIsStill) {
  shown(picture(0), moving);
  shown(picture(10), moving);
  EXPECT_FALSE(shown(picture(10), moving));
  const auto frame = shown(picture(10), still);
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->number, 3u);
  EXPECT_EQ(frame->codec, exact);
  EXPECT_EQ(frame->places.size(), 10u);
  EXPECT_FALSE(isChange);
  EXPECT_FALSE(viewer.isInexact());
  EXPECT_FALSE(shown(picture(10), still));
}

TEST_F(AViewer, HasNoLikenessOfWhatItHasSeenExactlySince) {
  shown(picture(0), moving);
  shown(picture(10), moving);
  ASSERT_TRUE(shown(picture(8), moving));  // the last two, exactly
  const auto frame = shown(picture(8), still);
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->places.size(), 8u);
}

TEST_F(AViewer, HasALikenessOfAllThatMoved) {
  shown(picture(0), moving);
  shown(picture(10), moving);
  shown(picture(16, 0xff00ff00), moving);
  const auto frame = shown(picture(16, 0xff00ff00), still);
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->places.size(), 16u);
}

TEST_F(AViewer, IsShownAllOfAPictureOfAnotherSizeExactlyWhenItIsStill) {
  shown(picture(0), moving);
  shown(picture(10), moving);
  const sim::Surface turned = plainPicture(width, height * 2);
  const auto quick = shown(turned, moving);
  ASSERT_TRUE(quick);
  EXPECT_EQ(quick->codec, likeness);
  const auto frame = shown(turned, still);
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->places.size(), 32u);
}

TEST_F(AViewer, LooksWhereThePictureMayHaveChangedAlone) {
  viewer.show(picture(0), moving);
  sim::Region first, second;
  first.add({0, 0, 1, 1});
  second.add({64, 0, 1, 1});
  viewer.miss(first);
  viewer.miss(second);
  const Viewer::Next next = viewer.show(picture(16), moving);
  ASSERT_TRUE(next.message);
  EXPECT_EQ(readFrame(*next.message).places.size(), 2u);
  EXPECT_FALSE(viewer.show(picture(16, 0xff00ff00), moving).message);
}

TEST_F(AViewer, IsReadyUntilTwoFramesAreOnTheWay) {
  EXPECT_TRUE(viewer.isReady());
  shown(picture(0), moving);
  EXPECT_TRUE(viewer.isReady());
  shown(picture(1), moving);
  EXPECT_FALSE(viewer.isReady());
  viewer.hasDrawn(1);
  EXPECT_TRUE(viewer.isReady());
}

class DrawnFrames : public AViewer {
 protected:
  // Whether it is ready when two are on the way and it has said these.
  bool isReadyAfter(const std::vector<double>& frames) {
    shown(picture(0), moving);
    shown(picture(1), moving);
    for (const double frame : frames) viewer.hasDrawn(frame);
    return viewer.isReady();
  }
};

TEST_F(DrawnFrames, AreNoneBeforeTheFirst) {
  EXPECT_FALSE(isReadyAfter({0}));
  EXPECT_FALSE(isReadyAfter({-1}));
}

TEST_F(DrawnFrames, DoNotGoBack) { EXPECT_TRUE(isReadyAfter({1, 0, -1e300})); }

TEST_F(DrawnFrames, AreNoneThatWereNotSent) {
  isReadyAfter({3, 4294967295.0, 4294967296.0, 1e300});
  EXPECT_TRUE(viewer.isReady());
  shown(picture(2), moving);
  EXPECT_TRUE(viewer.isReady());
  shown(picture(3), moving);
  EXPECT_FALSE(viewer.isReady());
}

}  // namespace
}  // namespace test
