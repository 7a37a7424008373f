// Cairo's way from the pixels of a screen to those of a picture, in its own whole numbers.
#include "simulator/quartz/sampling.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace sim {
namespace {

constexpr double farthest = 16384;   // pixels
constexpr double closest = 0.25;     // of the screen's pixels, in the picture's
constexpr double widest = 1 / 0.75;  // beyond that cairo mixes more than neighbours
constexpr double likeness = 1e-9;
constexpr double sameArea = 1.0 / 256;  // a picture that keeps its area this nearly is not centred

// Where the coordinate c of the screen is on one axis of the picture: c · scale + shift.
struct Line {
  double scale, shift;

  double at(double c) const { return c * scale + shift; }
  double back(double place) const { return (place - shift) / scale; }
};

int fixed(double value) { return static_cast<int>(std::lrint(value * Axis::one)); }

// In the 256ths of a pixel that cairo counts in.
bool isNearlyWhole(double shift) { return std::lrint(shift * 256) % 256 == 0; }

// So many pixels of the screen are counted apart, that what is left are small numbers: of those that cairo
// considers, those that are nearest.
struct Offset {
  double x, y;
};

Offset offsetOf(const Line& x, const Line& y) {
  Offset best{x.shift, y.shift};
  if (best.x == 0 && best.y == 0) return best;
  double norm = std::max(std::abs(best.x), std::abs(best.y));
  for (const int i : {-1, 1})
    for (const int k : {-1, 1}) {
      const double determinant = (x.scale + i) * (y.scale + k);
      if (std::abs(determinant) < std::numeric_limits<double>::epsilon()) continue;
      const double share = 1 / determinant;
      const Offset one{-x.shift * (y.scale + k) * share, -y.shift * (x.scale + i) * share};
      const double its = std::max(std::abs(one.x), std::abs(one.y));
      if (norm > its) norm = its, best = one;
    }
  return {std::floor(best.x), std::floor(best.y)};
}

// The middle of what is painted comes to lie as exactly as the numbers allow.
void center(int scale, int& shift, const Line& line, double middle) {
  constexpr int half = Axis::one / 2;
  const std::int64_t place =
      (std::int64_t{scale} * fixed(middle) + std::int64_t{shift} * Axis::one + half) >> Axis::bits;
  const double error = line.back(static_cast<double>(place) / Axis::one) - middle;
  shift -= fixed(error * line.scale);
}

Axis axisOf(const Line& line, double offset, double middle, bool isCentered) {
  const Line near{line.scale, line.at(offset)};
  const int scale = fixed(near.scale);
  int shift = fixed(near.shift);
  constexpr int rounds = 5;
  for (int i = 0; isCentered && i < rounds; ++i) center(scale, shift, near, middle);
  constexpr int half = Axis::one / 2;  // pixels are taken at their middles
  const std::int64_t first = std::int64_t{shift} - static_cast<std::int64_t>(offset) * scale;
  return {((std::int64_t{scale} * half + first * Axis::one + half) >> Axis::bits) - half, scale};
}

// The middle of what is painted of a picture between two pixels of the screen.
double middleOf(const Line& line, int length, int begin, int end) {
  const bool grows = line.scale < 1;  // it then fades out over half a pixel of its own
  const double more = grows ? 0.5 : 0;
  double first = line.back(-more), last = line.back(length + more);
  first = grows ? std::floor(first + 0.5) : std::floor(first);
  last = grows ? std::floor(last + 0.5) : std::ceil(last);
  const double left = std::max<double>(first, begin), right = std::min<double>(last, end);
  return left + (right - left) / 2;
}

}  // namespace

std::optional<Sampling> samplingOf(cairo_t* context, cairo_surface_t* image, const PixelRect& painted) {
  Line x{1, 0}, y{1, 0};
  double xy = 0, yx = 0;
  cairo_device_to_user(context, &x.shift, &y.shift);
  cairo_device_to_user_distance(context, &x.scale, &yx);
  cairo_device_to_user_distance(context, &xy, &y.scale);
  if (!(std::abs(xy) < likeness && std::abs(yx) < likeness)) return std::nullopt;
  for (const Line& line : {x, y})
    if (!(line.scale > closest && line.scale < widest && std::abs(line.shift) < farthest))
      return std::nullopt;
  if (x.scale == 1 && y.scale == 1 && isNearlyWhole(x.shift) && isNearlyWhole(y.shift))
    x.shift = std::round(x.shift), y.shift = std::round(y.shift);
  const double area = x.scale * y.scale;
  const bool isCentered = std::abs(area * area - 1) >= sameArea;
  const Offset offset = offsetOf(x, y);
  const double across =
      middleOf(x, cairo_image_surface_get_width(image), painted.x, painted.x + painted.width);
  const double down =
      middleOf(y, cairo_image_surface_get_height(image), painted.y, painted.y + painted.height);
  return Sampling{axisOf(x, offset.x, across, isCentered), axisOf(y, offset.y, down, isCentered)};
}

}  // namespace sim
