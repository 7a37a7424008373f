// A Gaussian blur by three box blurs.
#include "simulator/quartz/blur.hpp"

#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace sim {
namespace {

constexpr int passes = 3;

// Odd box widths whose variances sum to the Gaussian's as nearly as odd widths can.
std::array<int, passes> boxWidths(double deviation) {
  const double variance = 12 * deviation * deviation;
  int narrow = static_cast<int>(std::sqrt(variance / passes + 1));
  if (narrow % 2 == 0) --narrow;
  const double narrowCount =
      (variance - passes * narrow * narrow - 4 * passes * narrow - 3 * passes) / (-4.0 * narrow - 4);
  std::array<int, passes> widths;
  for (int i = 0; i < passes; ++i) widths[i] = i < std::lround(narrowCount) ? narrow : narrow + 2;
  return widths;
}

// One line of `count` values `step` apart, from `in` to `out`.
void boxBlur(const float* in, float* out, int count, std::ptrdiff_t step, int width) {
  const int half = width / 2;
  const float share = 1.0f / static_cast<float>(width);
  double sum = 0;
  for (int i = 0; i < half && i < count; ++i) sum += in[i * step];
  for (int i = 0; i < count; ++i) {
    if (i + half < count) sum += in[(i + half) * step];
    if (i - half - 1 >= 0) sum -= in[(i - half - 1) * step];
    out[i * step] = static_cast<float>(sum) * share;
  }
}

}  // namespace

double blurReach(double deviation) { return 3 * deviation + 1; }

Surface blurredAlpha(cairo_surface_t* image, double deviation) {
  cairo_surface_flush(image);
  const int width = cairo_image_surface_get_width(image), height = cairo_image_surface_get_height(image);
  const unsigned char* source = cairo_image_surface_get_data(image);
  const int sourceStride = cairo_image_surface_get_stride(image);
  const std::size_t area = static_cast<std::size_t>(width) * height;
  std::vector<float> values(area), other(area);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto pixel = reinterpret_cast<const unsigned*>(source + std::ptrdiff_t{y} * sourceStride)[x];
      values[static_cast<std::size_t>(y) * width + x] = static_cast<float>(pixel >> 24);
    }
  }
  for (const int box : boxWidths(deviation)) {
    if (box <= 1) continue;
    for (int y = 0; y < height; ++y) {
      const std::size_t start = static_cast<std::size_t>(y) * width;
      boxBlur(&values[start], &other[start], width, 1, box);
    }
    for (int x = 0; x < width; ++x) boxBlur(&other[x], &values[x], height, width, box);
  }
  Surface result = adoptSurface(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
  unsigned char* target = cairo_image_surface_get_data(result.get());
  const int stride = cairo_image_surface_get_stride(result.get());
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      target[std::ptrdiff_t{y} * stride + x] =
          static_cast<unsigned char>(std::lround(values[static_cast<std::size_t>(y) * width + x]));
    }
  }
  cairo_surface_mark_dirty(result.get());
  return result;
}

}  // namespace sim
