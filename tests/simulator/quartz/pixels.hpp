// Reading single pixels of a picture.
#pragma once

#include <cairo.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <vector>

namespace sim::test {

/** Premultiplied components, 0 to 255. */
struct Pixel {
  int red, green, blue, alpha;
  bool operator==(const Pixel&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Pixel& pixel) {
  return out << "(" << pixel.red << ", " << pixel.green << ", " << pixel.blue << ", " << pixel.alpha << ")";
}

inline Pixel pixelAt(cairo_surface_t* image, int x, int y) {
  cairo_surface_flush(image);
  const unsigned char* row =
      cairo_image_surface_get_data(image) + std::ptrdiff_t{y} * cairo_image_surface_get_stride(image);
  std::uint32_t value;
  std::memcpy(&value, row + 4 * x, 4);
  return {int(value >> 16 & 0xff), int(value >> 8 & 0xff), int(value & 0xff), int(value >> 24)};
}

/** The sum of all alphas, in whole opaque pixels. */
inline double inkIn(cairo_surface_t* image) {
  double sum = 0;
  for (int y = 0; y < cairo_image_surface_get_height(image); ++y) {
    for (int x = 0; x < cairo_image_surface_get_width(image); ++x) sum += pixelAt(image, x, y).alpha / 255.0;
  }
  return sum;
}

/** First and last column and row that hold any ink; `empty` when there is none. */
struct InkBounds {
  int left, top, right, bottom;
  bool empty;
};

inline InkBounds inkBounds(cairo_surface_t* image) {
  const int width = cairo_image_surface_get_width(image), height = cairo_image_surface_get_height(image);
  InkBounds bounds{width, height, -1, -1, true};
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      if (pixelAt(image, x, y).alpha == 0) continue;
      bounds.left = x < bounds.left ? x : bounds.left;
      bounds.right = x > bounds.right ? x : bounds.right;
      bounds.top = y < bounds.top ? y : bounds.top;
      bounds.bottom = y > bounds.bottom ? y : bounds.bottom;
      bounds.empty = false;
    }
  }
  return bounds;
}

}  // namespace sim::test
