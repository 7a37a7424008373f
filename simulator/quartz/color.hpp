// A colour in sRGB, not premultiplied.
#pragma once

#include <cairo.h>

namespace sim {

/** Components from 0 to 1. */
struct Color {
  double red = 0, green = 0, blue = 0, alpha = 0;
  bool operator==(const Color&) const = default;
};

/** From 0xRRGGBB. */
constexpr Color rgb(unsigned hex, double alpha = 1) {
  return {(hex >> 16 & 0xff) / 255.0, (hex >> 8 & 0xff) / 255.0, (hex & 0xff) / 255.0, alpha};
}

inline constexpr Color whiteColor{1, 1, 1, 1};
inline constexpr Color blackColor{0, 0, 0, 1};
inline constexpr Color clearColor{0, 0, 0, 0};

constexpr Color withAlpha(Color color, double alpha) { return {color.red, color.green, color.blue, alpha}; }

inline void setSource(cairo_t* context, const Color& color) {
  cairo_set_source_rgba(context, color.red, color.green, color.blue, color.alpha);
}

/** A colour stop of a gradient; `offset` from 0 to 1. */
inline void addStop(cairo_pattern_t* gradient, double offset, const Color& color) {
  cairo_pattern_add_color_stop_rgba(gradient, offset, color.red, color.green, color.blue, color.alpha);
}

}  // namespace sim
