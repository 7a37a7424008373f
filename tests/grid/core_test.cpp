// The numbers of the grid, without a home screen.
#include "startup/grid/core.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace {

using namespace tilo::grid;

// A screen that tells whether it was asked for more than its lengths.
struct Screen {
  CGFloat native, scale, tabletFactor = 0;
  bool tablet = false;
  CGFloat icons = 5;
  mutable int questions = 0;

  bool isTablet() const { return ++questions, tablet; }
  CGFloat count() const { return ++questions, icons; }
};

TEST(ScaledSpacing, IsAsItStandsUpToTheFourInchScreen) {
  const Screen phone{.native = 1136, .scale = 2}, narrow{.native = 640, .scale = 2};
  EXPECT_EQ(scaled(heights, phone, 30, 7), 30);
  EXPECT_EQ(scaled(widths, narrow, 30, 7), 30);
  EXPECT_EQ(phone.questions + narrow.questions, 0);
}

TEST(ScaledSpacing, IsAsItStandsOnScreensOfScaleThree) {
  const Screen plus{.native = 1920, .scale = 3, .tablet = true};
  EXPECT_EQ(scaled(heights, plus, 30, 7), 30);
  EXPECT_EQ(plus.questions, 0);
}

TEST(ScaledSpacing, IsAsItStandsBeforeAScreenWasMeasured) {
  EXPECT_EQ(scaled(heights, Screen{.native = 0, .scale = 0}, -13, 5), -13);
}

TEST(ScaledSpacing, GrowsOnAPhoneWithItsPixelsAndFewerIcons) {
  const Screen phone{.native = 1334, .scale = 2, .icons = 6};
  EXPECT_DOUBLE_EQ(scaled(heights, phone, 10, 0), 10 * (1334.0 / 1136) * 1.4 * (5.0 / 6));
  const Screen wide{.native = 750, .scale = 2, .icons = 4};
  EXPECT_DOUBLE_EQ(scaled(widths, wide, 10, 0), 10 * (750.0 / 640) * 1.4);
}

TEST(ScaledSpacing, OfAPhoneTakesTheExtraForHeightsAlone) {
  const Screen phone{.native = 1334, .scale = 2};
  EXPECT_DOUBLE_EQ(scaled(heights, phone, 10, 7), scaled(heights, phone, 10, 0) + 7);
  EXPECT_EQ(scaled(widths, phone, 10, 7), scaled(widths, phone, 10, 0));
}

TEST(ScaledSpacing, OfATabletIsItsFactorAndTwentyAndTheExtra) {
  const Screen tablet{.native = 2048, .scale = 2, .tabletFactor = 3.5, .tablet = true};
  EXPECT_EQ(scaled(heights, tablet, 10, 0), 55);
  EXPECT_EQ(scaled(heights, tablet, 10, 7), 62);
  EXPECT_EQ(scaled(widths, tablet, 10, 7), 62);
  EXPECT_EQ(tablet.questions, 3);
}

TEST(TabletFactors, AreTwiceTheScreenByTheFourInchOneInPortrait) {
  const Factors factors = portraitFactors(768, 1024);
  EXPECT_DOUBLE_EQ(factors.height, 2048.0 / 568);
  EXPECT_DOUBLE_EQ(factors.width, 1536.0 / 320);
}

TEST(TabletFactors, TradeWidthAndHeightInLandscapeAndLeaveRoomForTheDock) {
  const Factors factors = landscapeFactors(768, 1024, -4, {1, 2});
  EXPECT_DOUBLE_EQ(factors.height, 1536.0 / 688);
  EXPECT_DOUBLE_EQ(factors.width, 2048.0 / 320);
}

TEST(TabletFactors, OfSomeLayoutsKeepTheWidth) {
  for (long preset : {-2, 1, 8, 9}) EXPECT_EQ(landscapeFactors(768, 1024, preset, {1, 2}).width, 2) << preset;
  for (long preset : {-4, -3, -1, 0, 2, 7, 10})
    EXPECT_DOUBLE_EQ(landscapeFactors(768, 1024, preset, {1, 2}).width, 6.4) << preset;
}

TEST(GridCount, IsOneMoreThanWhatTravels) {
  EXPECT_EQ(fromOneLess(3), 4u);
  EXPECT_EQ(fromOneLess(-1), 0u);
}

TEST(GridCount, KeepsItsSignAndWrapsAroundAtTheLargest) {
  EXPECT_EQ(static_cast<long>(fromOneLess(-5)), -4);
  EXPECT_EQ(static_cast<long>(fromOneLess(std::numeric_limits<int32_t>::max())),
            std::numeric_limits<int32_t>::min());
}

TEST(GridCount, AsALengthHasNoSignAndThirtyTwoBits) {
  EXPECT_EQ(asLength(6), 6);
  EXPECT_EQ(asLength(static_cast<unsigned long>(-3)), 4294967293.0);
}

}  // namespace
