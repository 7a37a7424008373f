// Which place of a picture each pixel of a screen shows, in whole numbers.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <optional>

#include "simulator/quartz/region.hpp"

namespace sim {

/** Places are in 65536ths of a pixel; the pixel `n` of the target shows what is at `from + n * step`. */
struct Axis {
  static constexpr int bits = 16, one = 1 << bits;
  static constexpr int shareBits = 7;

  std::int64_t from;
  int step;  // more than 0

  bool isWhole() const { return step == one; }
  std::int64_t place(int n) const { return from + std::int64_t{n} * step; }
  /** The first of the two that are mixed. */
  int pixel(int n) const { return static_cast<int>(place(n) >> bits); }
  /** Of the second, in steps of 1/128. */
  int share(int n) const { return static_cast<int>(place(n) & (one - 1)) >> (bits - shareBits); }
  /** The first pixel of the target that shows nothing before that one of the picture. */
  int firstAt(int pixel) const {
    const std::int64_t more = std::int64_t{pixel} * one - from + step - 1;
    return static_cast<int>(more >= 0 ? more / step : -((step - 1 - more) / step));
  }
};

struct Sampling {
  Axis x, y;
};

/**
 * As cairo takes the pixels of an image that its coordinates place at (0, 0), one unit to a pixel, where
 * `painted` of the target is painted: none when it is turned or mirrored, or so small that more than
 * neighbours are mixed.
 */
std::optional<Sampling> samplingOf(cairo_t* context, cairo_surface_t* image, const PixelRect& painted);

}  // namespace sim
