// A Gaussian blur by three box blurs.
#include "simulator/quartz/blur.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <numeric>
#include <utility>
#include <vector>

#include "simulator/quartz/kept.hpp"

namespace sim {
namespace {

constexpr int passes = 3;
constexpr std::size_t room =
    8u << 20;  // bytes of shapes and shadows: a press on a panel's button changes neither

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

// The values of a picture, row by row, and room for as many.
struct Values {
  Values(int across, int down)
      : width(static_cast<std::size_t>(across)),
        height(static_cast<std::size_t>(down)),
        now(std::make_unique_for_overwrite<float[]>(width * height)),
        next(std::make_unique_for_overwrite<float[]>(width * height)) {}

  float* row(std::size_t y) { return &now[y * width]; }
  float* nextRow(std::size_t y) { return &next[y * width]; }

  const std::size_t width, height;
  std::unique_ptr<float[]> now, next;
};

void blurRow(const float* in, float* out, std::size_t count, std::size_t half, float share) {
  double sum = 0;
  for (std::size_t i = 0; i < half && i < count; ++i) sum += in[i];
  for (std::size_t i = 0; i < count; ++i) {
    if (i + half < count) sum += in[i + half];
    if (i > half) sum -= in[i - half - 1];
    out[i] = static_cast<float>(sum) * share;
  }
}

// Many rows are like the one above them.
void blurAcross(Values& values, std::size_t half, float share) {
  const std::size_t bytes = values.width * sizeof(float);
  for (std::size_t y = 0; y < values.height; ++y) {
    if (y > 0 && std::memcmp(values.row(y), values.row(y - 1), bytes) == 0)
      std::memcpy(values.nextRow(y), values.nextRow(y - 1), bytes);
    else
      blurRow(values.row(y), values.nextRow(y), values.width, half, share);
  }
  std::swap(values.now, values.next);
}

// All columns side by side, which is what a processor's vector units are for.
void blurDown(Values& values, std::size_t half, float share) {
  const std::vector<float> none(values.width);
  std::vector<double> sums(values.width);
  const std::size_t width = values.width, height = values.height;
  for (std::size_t y = 0; y < half && y < height; ++y)
    for (std::size_t x = 0; x < width; ++x) sums[x] += values.row(y)[x];
  for (std::size_t y = 0; y < height; ++y) {
    const float* const comes = y + half < height ? values.row(y + half) : none.data();
    const float* const goes = y > half ? values.row(y - half - 1) : none.data();
    float* const out = values.nextRow(y);
    for (std::size_t x = 0; x < width; ++x) {
      sums[x] = sums[x] + comes[x] - goes[x];
      out[x] = static_cast<float>(sums[x]) * share;
    }
  }
  std::swap(values.now, values.next);
}

// The alpha of a picture, row by row.
struct Shape {
  int width, height;
  std::vector<std::uint8_t> alpha;
  const std::uint8_t* row(int y) const {
    return &alpha[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)];
  }
  bool operator==(const Shape&) const = default;
};

Shape shapeOf(cairo_surface_t* image) {
  cairo_surface_flush(image);
  const int width = cairo_image_surface_get_width(image), height = cairo_image_surface_get_height(image);
  const unsigned char* row = cairo_image_surface_get_data(image);
  Shape shape{width, height,
              std::vector<std::uint8_t>(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))};
  std::uint8_t* out = shape.alpha.data();
  for (int y = 0; y < height; ++y, row += cairo_image_surface_get_stride(image), out += width) {
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(row);
    for (int x = 0; x < width; ++x) out[x] = static_cast<std::uint8_t>(pixels[x] >> 24);
  }
  return shape;
}

// Rows that are alike, and follow each other.
struct Stretch {
  int begin, end;
  int length() const { return end - begin; }
};

Stretch longestStretch(const Shape& shape) {
  Stretch longest{0, 0}, now{0, 0};
  for (int y = 0; y < shape.height; ++y) {
    const bool isLikeLast = y > 0 && std::equal(shape.row(y), shape.row(y) + shape.width, shape.row(y - 1));
    if (!isLikeLast) now.begin = y;
    now.end = y + 1;
    if (now.length() > longest.length()) longest = now;
  }
  return longest;
}

Surface blurred(const Shape& shape, double deviation) {
  const auto widths = boxWidths(deviation);
  // In the middle of a card, farther from its ends than the blur reaches, all rows come out alike: one is
  // enough.
  const Stretch plain = longestStretch(shape);
  const int reach = (std::accumulate(widths.begin(), widths.end(), 0) - passes) / 2;  // widths are odd
  const int kept = plain.begin + reach, leftOut = std::max(plain.length() - 2 * reach - 1, 0);
  Values values(shape.width, shape.height - leftOut);
  float* in = values.row(0);
  for (int y = 0; y < shape.height; ++y)
    if (y <= kept || y > kept + leftOut) in = std::copy_n(shape.row(y), shape.width, in);
  for (const int box : widths) {
    if (box <= 1) continue;
    const auto half = static_cast<std::size_t>(box / 2);
    const float share = 1.0f / static_cast<float>(box);
    blurAcross(values, half, share);
    blurDown(values, half, share);
  }
  Surface result = adoptSurface(cairo_image_surface_create(CAIRO_FORMAT_A8, shape.width, shape.height));
  unsigned char* target = cairo_image_surface_get_data(result.get());
  const int stride = cairo_image_surface_get_stride(result.get());
  for (int y = 0; y < shape.height; ++y) {
    const float* const row =
        values.row(static_cast<std::size_t>(y <= kept ? y : std::max(y - leftOut, kept)));
    unsigned char* const out = target + std::ptrdiff_t{y} * stride;
    // Never below zero, so that this rounds to the nearest.
    for (int x = 0; x < shape.width; ++x)
      out[x] = static_cast<unsigned char>(static_cast<double>(row[x]) + 0.5);
  }
  cairo_surface_mark_dirty(result.get());
  return result;
}

}  // namespace

double blurReach(double deviation) { return 3 * deviation + 1; }

Surface blurredAlpha(cairo_surface_t* image, double deviation) {
  struct Known {
    Shape shape;
    double deviation;
    Surface result;
  };
  static auto& kept = *new Kept<Known>(room);
  Shape shape = shapeOf(image);
  const Known* const known =
      kept.find([&](const Known& each) { return each.deviation == deviation && each.shape == shape; });
  if (known) return known->result;
  Surface result = blurred(shape, deviation);
  const std::size_t bytes = shape.alpha.size() + bytesOf(result.get());
  kept.add({std::move(shape), deviation, result}, bytes);
  return result;
}

}  // namespace sim
