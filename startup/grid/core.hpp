// The numbers of the grid, from numbers alone: nothing here asks a screen, a list or the settings. Stored
// spacing values are made for the 4-inch screen; on others they are stretched. Lengths are points unless
// named native, which are pixels.
#pragma once

#include <cstdint>

#include "platform/coregraphics/geometry.hpp"

namespace tilo::grid {

// The 4-inch screen: points, and pixels at its scale of 2.
inline constexpr CGFloat referenceHeight = 568, referenceWidth = 320;
inline constexpr CGFloat referenceNativeHeight = 1136, referenceNativeWidth = 640;
// Screens of this scale show stored values as they are.
inline constexpr CGFloat unscaledScale = 3;
// Larger phones of scale 2 stretch by their pixels, by this, and by how many icons SpringBoard has there for
// the 5 rows or 4 columns of the 4-inch screen. 1.4 has no derivation: the layouts that people saved rest on
// it.
inline constexpr CGFloat phoneStretch = CGFloat(1.4);
inline constexpr CGFloat referenceRows = 5, referenceColumns = 4;
// Tablets stretch by a factor of theirs and add this.
inline constexpr CGFloat tabletExtra = 20;
// What a tablet's dock takes of the height in landscape.
inline constexpr CGFloat landscapeDock = 120;

// What differs between heights and widths.
struct Axis {
  CGFloat referenceNative;
  CGFloat referenceCount;
  bool phonesTakeExtra;
};
inline constexpr Axis heights{referenceNativeHeight, referenceRows, true};
inline constexpr Axis widths{referenceNativeWidth, referenceColumns, false};

// A spacing value on a screen. `screen` tells its `native` length, its `scale`, the `tabletFactor` of the
// axis, and, only where that matters, whether it `isTablet()` and SpringBoard's `count()` of icons on the
// axis.
template <class Screen>
CGFloat scaled(const Axis& axis, const Screen& screen, CGFloat spacing, CGFloat extra) {
  if (screen.native <= axis.referenceNative || screen.scale == unscaledScale) return spacing;
  if (screen.isTablet()) return screen.tabletFactor * spacing + (tabletExtra + extra);
  const CGFloat stretched = ((spacing * (screen.native / axis.referenceNative)) * phoneStretch) *
                            (axis.referenceCount / screen.count());
  return axis.phonesTakeExtra ? stretched + extra : stretched;
}

// A tablet's factors for heights and widths.
struct Factors {
  CGFloat height, width;
};

// The size is the screen's in portrait, also while it lies on its side.
constexpr Factors portraitFactors(CGFloat width, CGFloat height) {
  return {height * 2 / referenceHeight, width * 2 / referenceWidth};
}

// The layouts whose widths keep the factor that they had.
constexpr bool keepsWidthFactor(long preset) {
  return preset == -2 || preset == 1 || preset == 8 || preset == 9;
}

// Width and height trade places, and the dock takes its share of the height.
constexpr Factors landscapeFactors(CGFloat width, CGFloat height, long preset, Factors before) {
  return {width * 2 / (referenceHeight + landscapeDock),
          keepsWidthFactor(preset) ? before.width : height * 2 / referenceWidth};
}

// Counts travel as one less than they are, in 32 bits; the largest wraps around.
constexpr unsigned long fromOneLess(int32_t lessOne) {
  const auto count = static_cast<uint32_t>(lessOne) + 1;
  return static_cast<unsigned long>(static_cast<long>(static_cast<int32_t>(count)));
}

// SpringBoard's count as a length: of it, too, 32 bits count.
constexpr CGFloat asLength(unsigned long count) { return static_cast<CGFloat>(static_cast<uint32_t>(count)); }

}  // namespace tilo::grid
