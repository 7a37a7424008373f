// The table of models: screens and versions are published data; the stock grids follow measured positions of
// first icons and distances between icons (±3 points) for 320 × 568, 375 × 667, 414 × 736 and 375 × 812, and
// elsewhere lie in the middle between the edges, and between the status bar and the page dots.
#include "simulator/device/catalogue.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

// What models with the same screen share.
struct Screen {
  CGSize points;
  int scale;
  CGSize nativePixels;
  Idiom idiom;
  bool turns;
  StockGrid portrait, landscape;
  int dockIcons, floatingDockIcons;
  double dockHeight;
  CGSize iconImageSize;
  FolderGrid folder;
};

constexpr double labelHeight = 14;  // points below the image
constexpr CGSize phoneIcon{60, 60}, padIcon{76, 76}, largePadIcon{83.5, 83.5};
constexpr FolderGrid phoneFolder{3, 3}, padFolder{4, 4};

constexpr Screen phone(CGSize points, int scale, CGSize pixels, StockGrid grid, double dockHeight) {
  return {points, scale, pixels, Idiom::phone, false, grid, grid, 4, 4, dockHeight, phoneIcon, phoneFolder};
}

constexpr Screen pad(CGSize points, int scale, StockGrid portrait, StockGrid landscape) {
  const CGSize pixels{points.width * scale, points.height * scale};
  return {points, scale, pixels, Idiom::pad, true, portrait, landscape, 6, 13, 124, padIcon, padFolder};
}

constexpr Screen screen480 = phone({320, 480}, 2, {640, 960}, {4, 4, 16, 27, 16, 11}, 96);
constexpr Screen screen568 = phone({320, 568}, 2, {640, 1136}, {5, 4, 16, 30, 16, 11}, 96);
constexpr Screen screen667 = phone({375, 667}, 2, {750, 1334}, {6, 4, 27, 30, 27, 14}, 96);
// The dock of this one stands above the home indicator, 34 points high.
constexpr Screen screen812 = phone({375, 812}, 3, {1125, 2436}, {6, 4, 24, 71, 29, 21}, 130);
// Drawn at three pixels a point, 1242 × 2208, and shrunk to the panel. Held sideways it has its dock at the
// right.
constexpr Screen screen736{
    {414, 736}, 3, {1080, 1920}, Idiom::phone, true,       {6, 4, 33, 38, 36, 23}, {4, 6, 40, 28, 40, 20},
    4,          4, 96,           phoneIcon,    phoneFolder};

constexpr StockGrid portrait1024{5, 4, 100, 64, 88, 80}, landscape1024{4, 5, 110, 50, 106, 62};
constexpr Screen screen1024 = pad({768, 1024}, 1, portrait1024, landscape1024);
constexpr Screen screen1024Retina = pad({768, 1024}, 2, portrait1024, landscape1024);
constexpr Screen screen1112 = pad({834, 1112}, 2, {5, 4, 115, 72, 100, 98}, {4, 5, 126, 58, 120, 78});
constexpr Screen screen1366{{1024, 1366},
                            2,
                            {2048, 2732},
                            Idiom::pad,
                            true,
                            {5, 4, 150, 94, 130, 140},
                            {4, 5, 162.25, 76, 156, 117},
                            6,
                            15,
                            132,
                            largePadIcon,
                            padFolder};

constexpr Device model(std::string_view name, const Screen& screen, Version first, Version last) {
  return {name,
          screen.points,
          screen.scale,
          screen.nativePixels,
          screen.idiom,
          first,
          last,
          screen.turns,
          screen.portrait,
          screen.landscape,
          screen.dockIcons,
          screen.floatingDockIcons,
          screen.dockHeight,
          screen.iconImageSize,
          {screen.iconImageSize.width, screen.iconImageSize.height + labelHeight},
          screen.folder};
}

constexpr Version oldest{8, 4};  // older systems are of no interest here, though a model may have run them
constexpr Version lastOfA5{9, 3, 6}, lastOfA6{10, 3, 4};
constexpr Version lastOfA7{12, 5, 7};  // also of A8 phones and iPods: what went no further than 12
constexpr Version lastOf12{12, 4, 1};  // of models that went on to 13

// Models with an A12 or A12X (iPhone XS, XS Max and XR, and the iPad Pro of 2018) are left out: their
// SpringBoard is an arm64e program, and its loader refuses the library's arm64 slice.
constexpr Device devices[] = {
    model("iPhone 4s", screen480, oldest, lastOfA5),
    model("iPhone 5", screen568, oldest, lastOfA6),
    model("iPhone 5c", screen568, oldest, {10, 3, 3}),
    model("iPhone 5s", screen568, oldest, lastOfA7),
    model("iPhone 6", screen667, oldest, lastOfA7),
    model("iPhone 6 Plus", screen736, oldest, lastOfA7),
    model("iPhone 6s", screen667, {9, 0}, lastOf12),
    model("iPhone 6s Plus", screen736, {9, 0}, lastOf12),
    model("iPhone SE", screen568, {9, 3}, lastOf12),
    model("iPhone 7", screen667, {10, 0}, lastOf12),
    model("iPhone 7 Plus", screen736, {10, 0}, lastOf12),
    model("iPhone 8", screen667, {11, 0}, lastOf12),
    model("iPhone 8 Plus", screen736, {11, 0}, lastOf12),
    model("iPhone X", screen812, {11, 0, 1}, lastOf12),
    model("iPod touch 5", screen568, oldest, {9, 3, 5}),
    model("iPod touch 6", screen568, oldest, lastOfA7),
    model("iPad 2", screen1024, oldest, lastOfA5),
    model("iPad mini 1", screen1024, oldest, lastOfA5),
    model("iPad 3", screen1024Retina, oldest, lastOfA5),
    model("iPad 4", screen1024Retina, oldest, lastOfA6),
    model("iPad Air", screen1024Retina, oldest, lastOfA7),
    model("iPad mini 2", screen1024Retina, oldest, lastOfA7),
    model("iPad mini 3", screen1024Retina, oldest, lastOfA7),
    model("iPad Air 2", screen1024Retina, oldest, lastOf12),
    model("iPad mini 4", screen1024Retina, {9, 0}, lastOf12),
    model("iPad Pro (9.7-inch)", screen1024Retina, {9, 3}, lastOf12),
    model("iPad 5", screen1024Retina, {10, 3}, lastOf12),
    model("iPad 6", screen1024Retina, {11, 3}, lastOf12),
    model("iPad Pro (12.9-inch)", screen1366, {9, 1}, lastOf12),
    model("iPad Pro (12.9-inch) 2", screen1366, {10, 3, 2}, lastOf12),
    model("iPad Pro (10.5-inch)", screen1112, {10, 3, 2}, lastOf12),
};

}  // namespace

Version Device::defaultVersion() const { return std::clamp(Version{10, 3, 3}, first, last); }

std::span<const Device> catalogue() { return devices; }

const Device& findDevice(std::string_view name) {
  const auto found = std::ranges::find(devices, name, &Device::name);
  if (found == std::end(devices))
    throw UsageError(fmt::format("unknown device '{}' (--list-devices shows them)", name));
  return *found;
}

Version findVersion(const Device& device, std::string_view text) {
  const std::optional<Version> version = Version::parse(text);
  if (!version || !version->existed()) throw UsageError(fmt::format("unknown system version '{}'", text));
  if (*version < device.first || *version > device.last)
    throw UsageError(fmt::format("system version '{}': {} ran {} to {}", text, device.name,
                                 device.first.text(), device.last.text()));
  return *version;
}

}  // namespace sim
