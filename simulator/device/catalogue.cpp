// The table of models: screens and versions are published data; the stock grids follow measured positions of
// first icons and distances between icons (±3 points) for 320 × 568, 375 × 667, 414 × 736 and 375 × 812, and
// elsewhere lie in the middle between the edges, and between the status bar and the page dots.
#include "simulator/device/catalogue.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "simulator/device/usage_error.hpp"

namespace sim {
namespace {

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
constexpr StockGrid portrait1366{5, 4, 150, 94, 130, 140}, landscape1366{4, 5, 162.25, 76, 156, 117};
constexpr CGSize points1366{1024, 1366}, pixels1366{2048, 2732};
constexpr Screen screen1366{points1366,    2, pixels1366, Idiom::pad, true,         portrait1366,
                            landscape1366, 6, 15,         132,        largePadIcon, padFolder};

constexpr Version oldest{8, 4};  // older systems are of no interest here, though a model may have run them
constexpr Version lastOfA5{9, 3, 6}, lastOfA6{10, 3, 4};
constexpr Version lastOfA7{12, 5, 7};  // also of A8 phones and iPods: what went no further than 12
constexpr Version lastOf12{12, 4, 1};  // of models that went on to 13

// Models with an A12 or A12X (iPhone XS, XS Max and XR, and the iPad Pro of 2018) are left out: their
// SpringBoard is an arm64e program, and its loader refuses the library's arm64 slice.
constexpr Device devices[] = {
    {screen480, "iPhone 4s", oldest, lastOfA5},
    {screen568, "iPhone 5", oldest, lastOfA6},
    {screen568, "iPhone 5c", oldest, {10, 3, 3}},
    {screen568, "iPhone 5s", oldest, lastOfA7},
    {screen667, "iPhone 6", oldest, lastOfA7},
    {screen736, "iPhone 6 Plus", oldest, lastOfA7},
    {screen667, "iPhone 6s", {9, 0}, lastOf12},
    {screen736, "iPhone 6s Plus", {9, 0}, lastOf12},
    {screen568, "iPhone SE", {9, 3}, lastOf12},
    {screen667, "iPhone 7", {10, 0}, lastOf12},
    {screen736, "iPhone 7 Plus", {10, 0}, lastOf12},
    {screen667, "iPhone 8", {11, 0}, lastOf12},
    {screen736, "iPhone 8 Plus", {11, 0}, lastOf12},
    {screen812, "iPhone X", {11, 0, 1}, lastOf12},
    {screen568, "iPod touch 5", oldest, {9, 3, 5}},
    {screen568, "iPod touch 6", oldest, lastOfA7},
    {screen1024, "iPad 2", oldest, lastOfA5},
    {screen1024, "iPad mini 1", oldest, lastOfA5},
    {screen1024Retina, "iPad 3", oldest, lastOfA5},
    {screen1024Retina, "iPad 4", oldest, lastOfA6},
    {screen1024Retina, "iPad Air", oldest, lastOfA7},
    {screen1024Retina, "iPad mini 2", oldest, lastOfA7},
    {screen1024Retina, "iPad mini 3", oldest, lastOfA7},
    {screen1024Retina, "iPad Air 2", oldest, lastOf12},
    {screen1024Retina, "iPad mini 4", {9, 0}, lastOf12},
    {screen1024Retina, "iPad Pro (9.7-inch)", {9, 3}, lastOf12},
    {screen1024Retina, "iPad 5", {10, 3}, lastOf12},
    {screen1024Retina, "iPad 6", {11, 3}, lastOf12},
    {screen1366, "iPad Pro (12.9-inch)", {9, 1}, lastOf12},
    {screen1366, "iPad Pro (12.9-inch) 2", {10, 3, 2}, lastOf12},
    {screen1112, "iPad Pro (10.5-inch)", {10, 3, 2}, lastOf12},
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
