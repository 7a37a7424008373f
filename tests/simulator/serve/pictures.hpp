// Pictures of a screen, pixel by pixel.
#pragma once

#include <cstdint>
#include <cstring>

#include "simulator/quartz/surface.hpp"

namespace test {

inline void paint(const sim::Surface& picture, int x, int y, std::uint32_t colour) {
  unsigned char* const row = cairo_image_surface_get_data(picture.get()) +
                             std::ptrdiff_t{y} * cairo_image_surface_get_stride(picture.get());
  std::memcpy(row + std::ptrdiff_t{x} * 4, &colour, 4);
}

inline std::uint32_t colourAt(const sim::Surface& picture, int x, int y) {
  std::uint32_t colour;
  std::memcpy(&colour,
              cairo_image_surface_get_data(picture.get()) +
                  std::ptrdiff_t{y} * cairo_image_surface_get_stride(picture.get()) + std::ptrdiff_t{x} * 4,
              4);
  return colour;
}

/** All of it of one colour. */
inline sim::Surface plainPicture(int width, int height, std::uint32_t colour = 0xff204060) {
  sim::Surface picture = sim::makeImage(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) paint(picture, x, y, colour);
  return picture;
}

/** Each pixel of a colour of its own, opaque. */
inline sim::Surface colourfulPicture(int width, int height) {
  sim::Surface picture = sim::makeImage(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      paint(picture, x, y,
            0xff000000 | static_cast<std::uint32_t>(x) << 16 | static_cast<std::uint32_t>(y) << 8 |
                static_cast<std::uint32_t>((x * 7 + y * 13) & 0xff));
  return picture;
}

}  // namespace test
