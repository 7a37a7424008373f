// The drawn parts of the home screen.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "simulator/artwork/app_catalogue.hpp"
#include "simulator/artwork/app_icon.hpp"
#include "simulator/artwork/dock_background.hpp"
#include "simulator/artwork/status_bar.hpp"
#include "simulator/artwork/wallpaper.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/quartz/fonts.hpp"
#include "simulator/quartz/surface.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace sim {
namespace {

using test::pixelAt;

Surface drawn(int width, int height, const std::function<void(cairo_t*, CGSize)>& draw, double scale = 1) {
  Surface image = makeImage(static_cast<int>(width * scale), static_cast<int>(height * scale));
  const Context context(image.get());
  cairo_scale(context, scale, scale);
  draw(context, {double(width), double(height)});
  EXPECT_EQ(cairo_status(context), CAIRO_STATUS_SUCCESS);
  return image;
}

Surface icon(const std::string& name, IconCorners corners = IconCorners::rounded) {
  return drawn(60, 60,
               [&](cairo_t* context, CGSize size) { drawAppIcon(context, name, size.width, corners); });
}

TEST(AppCatalogue, NamesAreManyAndDifferent) {
  EXPECT_GE(appCatalogueSize(), 45);
  std::set<std::string> names;
  for (int i = 0; i < appCatalogueSize() + 20; ++i) names.insert(appName(i));
  for (int i = 0; i < 15; ++i) names.insert(dockAppName(i));
  EXPECT_EQ(std::ssize(names), appCatalogueSize() + 35);
}

TEST(AppCatalogue, BeyondItsEndApplicationsAreNumbered) {
  EXPECT_EQ(appName(appCatalogueSize()), "App " + std::to_string(appCatalogueSize() + 1));
}

TEST(AppCatalogue, EveryGlyphIsInTheIconFont) {
  const auto check = [](const std::string& name) {
    const AppLook look = appLook(name);
    if (look.motif != IconMotif::glyph) return;
    EXPECT_TRUE(fontHasCharacter({.family = iconFontFamily}, look.glyph)) << name;
  };
  for (int i = 0; i < appCatalogueSize() + 200; ++i) check(appName(i));
  for (int i = 0; i < 20; ++i) check(dockAppName(i));
}

std::string bytesOf(const Surface& image) {
  cairo_surface_flush(image.get());
  return {reinterpret_cast<const char*>(cairo_image_surface_get_data(image.get())),
          static_cast<std::size_t>(cairo_image_surface_get_stride(image.get()) *
                                   cairo_image_surface_get_height(image.get()))};
}

TEST(AppIcon, OfACalendarShowsTheDevicesDay) {
  const std::string calendar = bytesOf(icon("Calendar")), notes = bytesOf(icon("Notes"));
  clock::advanceTo(51540 - 1);  // a second before midnight
  EXPECT_TRUE(bytesOf(icon("Calendar")) == calendar);
  clock::advanceTo(51540);
  EXPECT_TRUE(bytesOf(icon("Calendar")) != calendar);
  EXPECT_TRUE(bytesOf(icon("Notes")) == notes);
}

TEST(AppIcon, HasRoundedOrSquareCorners) {
  EXPECT_EQ(pixelAt(icon("Mail").get(), 1, 1).alpha, 0);
  EXPECT_EQ(pixelAt(icon("Mail").get(), 30, 0).alpha, 255);
  EXPECT_EQ(pixelAt(icon("Mail", IconCorners::square).get(), 0, 0).alpha, 255);
  EXPECT_EQ(pixelAt(icon("Mail", IconCorners::square).get(), 59, 59).alpha, 255);
}

// Where a circular corner of the same radius crosses the diagonal: r·(1 − √½) from either side.
TEST(AppIcon, CornerPassesThroughTheMiddleOfTheCircularOne) {
  const Surface image = drawn(
      100, 100, [](cairo_t* context, CGSize) { drawAppIcon(context, "Mail", 100, IconCorners::rounded); }, 4);
  const double expected = 400 * iconCornerFraction * (1 - 0.70710678);
  int crossing = 0;
  while (pixelAt(image.get(), crossing, crossing).alpha < 128) ++crossing;
  EXPECT_NEAR(crossing, expected, 1.5);
}

TEST(AppIcon, EveryApplicationLooksDifferent) {
  std::set<std::vector<unsigned char>> pictures;
  for (int i = 0; i < appCatalogueSize() + 10; ++i) pictures.insert(encodePng(icon(appName(i)).get()));
  EXPECT_EQ(std::ssize(pictures), appCatalogueSize() + 10);
}

TEST(AppIcon, OfAnyNameIsAlwaysTheSame) {
  EXPECT_EQ(encodePng(icon("Whatever").get()), encodePng(icon("Whatever").get()));
  EXPECT_GT(test::inkIn(icon("").get()), 3000);
}

TEST(Wallpaper, CoversEverySizeOpaquely) {
  for (const auto& [width, height] : {std::pair{32, 57}, std::pair{76, 57}, std::pair{5, 5}}) {
    const Surface image = drawn(width, height, drawWallpaper);
    EXPECT_EQ(test::inkIn(image.get()), width * height);
  }
}

TEST(StatusBar, HasTimeInTheMiddleAndSymbolsAtTheSides) {
  const Surface image = drawn(375, 20, [](cairo_t* context, CGSize size) { drawStatusBar(context, size); });
  const auto inkBetween = [&](int from, int to) {
    int count = 0;
    for (int x = from; x < to; ++x) {
      for (int y = 0; y < 20; ++y) count += pixelAt(image.get(), x, y).alpha > 0;
    }
    return count;
  };
  EXPECT_GT(inkBetween(0, 45), 50);
  EXPECT_EQ(inkBetween(45, 160), 0);
  EXPECT_GT(inkBetween(160, 215), 50);
  EXPECT_EQ(inkBetween(215, 290), 0);
  EXPECT_GT(inkBetween(290, 375), 100);
}

TEST(StatusBar, WithoutCellularHasNoSignalBars) {
  const auto bar = [](bool cellular) {
    return drawn(768, 20, [=](cairo_t* context, CGSize size) {
      StatusBarState state;
      state.cellular = cellular;
      drawStatusBar(context, size, state);
    });
  };
  EXPECT_LT(test::inkIn(bar(false).get()), test::inkIn(bar(true).get()) - 15);
}

TEST(StatusBar, BesideANotchLeavesTheMiddleFree) {
  const Surface image = drawn(375, 44, [](cairo_t* context, CGSize size) { drawStatusBar(context, size); });
  for (int x = 84; x < 291; ++x) {
    for (int y = 0; y < 44; ++y) ASSERT_EQ(pixelAt(image.get(), x, y).alpha, 0) << x;
  }
  EXPECT_GT(test::inkIn(image.get()), 100);
}

TEST(StatusBar, BatteryShowsItsCharge) {
  const auto ink = [](double charge) {
    StatusBarState state{.time = "", .battery = charge};
    return test::inkIn(
        drawn(375, 44, [&](cairo_t* context, CGSize size) { drawStatusBar(context, size, state); }).get());
  };
  EXPECT_GT(ink(1), ink(0.5) + 40);
  EXPECT_GT(ink(0.5), ink(0) + 40);
  EXPECT_EQ(ink(7), ink(1));
}

TEST(DockBackground, IsTranslucent) {
  const Surface image =
      drawn(375, 96, [](cairo_t* context, CGSize size) { drawDockBackground(context, size); });
  for (const int y : {1, 48, 95}) {
    EXPECT_GT(pixelAt(image.get(), 0, y).alpha, 60);
    EXPECT_LT(pixelAt(image.get(), 0, y).alpha, 200);
  }
}

TEST(DockBackground, FloatingHasRoundCorners) {
  const Surface image =
      drawn(300, 90, [](cairo_t* context, CGSize size) { drawDockBackground(context, size, 30); });
  EXPECT_EQ(pixelAt(image.get(), 2, 2).alpha, 0);
  EXPECT_EQ(pixelAt(image.get(), 297, 87).alpha, 0);
  EXPECT_GT(pixelAt(image.get(), 150, 45).alpha, 60);
}

}  // namespace
}  // namespace sim
