// How a length made for the 4-inch screen is stretched to another screen.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/uikit/device.hpp"
#include "platform/uikit/screen.hpp"
#include "tests/library/grid_home.hpp"

namespace {

using test::Home;
using test::homeOptions;

using Adjust = CGFloat (*)(CGFloat, CGFloat);

CGFloat adjustHeight(CGFloat length, CGFloat extra) {
  return reinterpret_cast<Adjust>(test::librarySymbol("tilo::adjustHeight(double, double)"))(length, extra);
}
CGFloat adjustWidth(CGFloat length, CGFloat extra) {
  return reinterpret_cast<Adjust>(test::librarySymbol("tilo::adjustWidth(double, double)"))(length, extra);
}
void measureAgain() { reinterpret_cast<void (*)()>(test::librarySymbol("tilo::getScreenSizes()"))(); }

constexpr double infinite = std::numeric_limits<double>::infinity();

std::vector<std::string> withGrid(const char* device, const char* rows, const char* columns) {
  return homeOptions(
      device, {"enabled=YES", "icons=YES", std::string("rows=") + rows, std::string("columns=") + columns});
}

void expectUnscaled() {
  for (double length : {10., 0., -7.5, 1e6}) {
    EXPECT_EQ(adjustHeight(length, 3), length);
    EXPECT_EQ(adjustWidth(length, 3), length);
  }
}

TEST(Scaling, LeavesAFourInchPhoneAlone) {
  Home home({"--device", "iPhone 5s"});
  expectUnscaled();
}

TEST(Scaling, LeavesASmallerPhoneAlone) {
  Home home({"--device", "iPhone 4s"});
  expectUnscaled();
}

TEST(Scaling, LeavesScreensOfThreePixelsAPointAlone) {
  Home home({"--device", "iPhone X", "--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=9"});
  expectUnscaled();
}

TEST(Scaling, LeavesAPlusPhoneAloneHeldSideways) {
  Home home({"--device", "iPhone 7 Plus", "--orientation", "landscape"});
  expectUnscaled();
}

TEST(Scaling, StretchesOnAWiderPhone) {
  Home home(withGrid("iPhone 7", "5", "4"));
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 10 * (1334. / 1136) * 1.4 + 3);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 10 * (750. / 640) * 1.4);
  EXPECT_DOUBLE_EQ(adjustHeight(-8, 0), -8 * (1334. / 1136) * 1.4);
  EXPECT_DOUBLE_EQ(adjustWidth(-8, 0), -8 * (750. / 640) * 1.4);
  EXPECT_EQ(adjustHeight(0, 3), 3);
  EXPECT_EQ(adjustWidth(0, 3), 0);
}

TEST(Scaling, ShrinksAsThereAreMoreRowsAndColumns) {
  Home home(withGrid("iPhone 7", "7", "5"));
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 10 * (1334. / 1136) * 1.4 * (5. / 7) + 3);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 10 * (750. / 640) * 1.4 * (4. / 5));
  home.save("rows"_ns, 2);
  home.save("columns"_ns, 3);
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 10 * (1334. / 1136) * 1.4 * (5. / 2) + 3);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 10 * (750. / 640) * 1.4 * (4. / 3));
}

TEST(Scaling, GoesByTheSystemsCountsWhileTheGridIsItsOwn) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "icons=NO", "rows=9", "columns=9"}));
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 10 * (1334. / 1136) * 1.4 * (5. / 6) + 3);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 10 * (750. / 640) * 1.4);
}

TEST(Scaling, IsInfiniteWithoutRowsOrColumns) {
  Home home(withGrid("iPhone 7", "5", "4"));
  home.save("rows"_ns, 0);
  home.save("columns"_ns, 0);
  EXPECT_EQ(adjustHeight(10, 3), infinite);
  EXPECT_EQ(adjustHeight(-10, 3), -infinite);
  EXPECT_EQ(adjustWidth(10, 3), infinite);
  EXPECT_EQ(adjustWidth(-10, 3), -infinite);
  EXPECT_TRUE(std::isnan(adjustHeight(0, 3)));
  EXPECT_TRUE(std::isnan(adjustWidth(0, 3)));
}

// Nothing times infinity is no number.
TEST(Scaling, OfALayoutWithoutLengthsMovesNothingWithoutRows) {
  Home home(homeOptions("iPhone 7", {"enabled=YES", "icons=YES", "rows=0", "custom_preset=0"},
                        test::withPresets({test::preset("flat", 0, 0, 0, 0, 0)})));
  EXPECT_TRUE(std::isnan(adjustHeight(0, 0)));
  EXPECT_EQ(home.page(0).verticalIconPadding(), 0);
}

TEST(Scaling, TakesACountBelowZeroWithoutItsSign) {
  Home home(withGrid("iPhone 7", "-3", "-1"));
  EXPECT_DOUBLE_EQ(adjustHeight(1e9, 0), 1e9 * (1334. / 1136) * 1.4 * (5. / 4294967293.));
  EXPECT_DOUBLE_EQ(adjustWidth(1e9, 0), 1e9 * (750. / 640) * 1.4 * (4. / 4294967295.));
}

TEST(Scaling, StretchesAndAddsOnATablet) {
  Home home(withGrid("iPad Air", "9", "9"));
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 2048. / 568 * 10 + 23);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 4.8 * 10 + 23);
  EXPECT_DOUBLE_EQ(adjustHeight(0, 0), 20);
  EXPECT_DOUBLE_EQ(adjustWidth(-10, 0), -28);
}

TEST(Scaling, GoesByTheScreenATabletStartedWith) {
  Home home({"--device", "iPad Air", "--orientation", "landscape"});
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 1536. / 568 * 10 + 23);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 6.4 * 10 + 23);
}

TEST(Scaling, GoesByTheLargestTabletsSize) {
  Home home({"--device", "iPad Pro (12.9-inch)"});
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 2732. / 568 * 10 + 23);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 6.4 * 10 + 23);
}

TEST(Scaling, StretchesOnlyWidthsOnATabletOfOnePixelAPoint) {
  Home home({"--device", "iPad 2"});
  EXPECT_EQ(adjustHeight(10, 3), 10);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 4.8 * 10 + 23);
}

// A screen that no model has, to stand on either side of a boundary.
CGSize pixels{};
CGFloat pixelsPerPoint = 0;
NSInteger idiom = 0;
CGRect nativeBounds(UIScreen) { return {{}, pixels}; }
CGFloat screenScale(UIScreen) { return pixelsPerPoint; }
NSInteger userInterfaceIdiom(UIDevice) { return idiom; }

void useScreen(CGSize size, CGFloat scale, NSInteger kind) {
  pixels = size;
  pixelsPerPoint = scale;
  idiom = kind;
  measureAgain();
}

void standInForTheScreen(sim::Simulation&) {
  test::standIn<UIScreen, &UIScreen::nativeBounds, nativeBounds>();
  test::standIn<UIScreen, &UIScreen::scale, screenScale>();
  test::standIn<UIDevice, &UIDevice::userInterfaceIdiom, userInterfaceIdiom>();
}

TEST(Scaling, BeginsJustAboveTheReferenceScreensPixels) {
  Home home(withGrid("iPhone 7", "5", "4"), standInForTheScreen);
  useScreen({640, 1136}, 2, 0);
  expectUnscaled();
  useScreen({640, 1136.5}, 2, 0);
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 10 * (1136.5 / 1136) * 1.4 + 3);
  EXPECT_EQ(adjustWidth(10, 3), 10);
  useScreen({640.5, 1136}, 2, 0);
  EXPECT_EQ(adjustHeight(10, 3), 10);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 10 * (640.5 / 640) * 1.4);
}

TEST(Scaling, IsOffAtExactlyThreePixelsAPoint) {
  Home home(withGrid("iPhone 7", "5", "4"), standInForTheScreen);
  useScreen({750, 1334}, 3, 0);
  expectUnscaled();
  for (double scale : {1., 2.99, 3.01, 4.}) {
    useScreen({750, 1334}, scale, 0);
    EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 10 * (1334. / 1136) * 1.4 + 3) << scale;
    EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 10 * (750. / 640) * 1.4) << scale;
  }
}

TEST(Scaling, LeavesATabletOfThreePixelsAPointOrFewPixelsAlone) {
  Home home(withGrid("iPhone 7", "5", "4"), standInForTheScreen);
  useScreen({1536, 2048}, 3, 1);
  expectUnscaled();
  useScreen({640, 1136}, 2, 1);
  expectUnscaled();
}

TEST(Scaling, IsAPhonesForEveryIdiomButTheTablets) {
  Home home(withGrid("iPhone 7", "5", "4"), standInForTheScreen);
  for (NSInteger kind : {-1, 0, 2, 3}) {
    useScreen({750, 1334}, 2, kind);
    EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 10 * (1334. / 1136) * 1.4 + 3) << kind;
    EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 10 * (750. / 640) * 1.4) << kind;
  }
}

// A wide phone held sideways has four rows of six on screen; what counts are its six rows of four.
TEST(Scaling, GoesByTheUprightCountsHeldSideways) {
  Home home(homeOptions("iPhone 7 Plus", {"enabled=NO"}, {"--orientation", "landscape"}),
            standInForTheScreen);
  EXPECT_EQ(home.page(0).iconColumnsForCurrentOrientation(), 6u);
  useScreen({1080, 1920}, 2, 0);
  EXPECT_DOUBLE_EQ(adjustHeight(10, 3), 10 * (1920. / 1136) * 1.4 * (5. / 6) + 3);
  EXPECT_DOUBLE_EQ(adjustWidth(10, 3), 10 * (1080. / 640) * 1.4);
}

TEST(Scaling, IsOffUntilTheScreenIsMeasured) {
  bool seen = false;
  auto presets = test::withPresets({test::preset("Scaled", 0, 11, 12, 13, 14)});
  Home home(homeOptions("iPad Air", {"enabled=YES"}, presets), [&](sim::Simulation&) {
    test::loadLibrary();
    expectUnscaled();
    auto page = bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{});
    EXPECT_EQ(page->verticalIconPadding(), 11);
    EXPECT_EQ(page->sideIconInset(), 13);
    EXPECT_EQ(page->topIconInset(), 14);
    seen = true;
  });
  EXPECT_TRUE(seen);
  EXPECT_DOUBLE_EQ(home.page(0).verticalIconPadding(), 2048. / 568 * 11 + 20);
  EXPECT_DOUBLE_EQ(home.page(0).sideIconInset(), 4.8 * 13 + 20);
}

}  // namespace
