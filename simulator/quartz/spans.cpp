// Mixing neighbouring pixels and laying the result over others.
#include "simulator/quartz/spans.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace sim {
namespace {

constexpr int channels = 4;
constexpr int steps = 128;  // between two pixels
constexpr int stepBits = 7, fractionBits = 16;

using Byte = std::uint8_t;
// Four pixels; two of them; and those with room for a product, or for the sum of two products of products.
constexpr int block = 4;
using Pixels [[gnu::vector_size(16)]] = Byte;
using Half [[gnu::vector_size(8)]] = Byte;
using Wide [[gnu::vector_size(16)]] = std::uint16_t;
using Wider [[gnu::vector_size(32)]] = std::uint32_t;

struct Block {
  Wide low, high;
};

Byte* rowOf(cairo_surface_t* image, int y) {
  return cairo_image_surface_get_data(image) + std::ptrdiff_t{y} * cairo_image_surface_get_stride(image);
}

Block load(const Byte* pixels) {
  Pixels four;
  std::memcpy(&four, pixels, sizeof four);
  const Half low = __builtin_shufflevector(four, four, 0, 1, 2, 3, 4, 5, 6, 7);
  const Half high = __builtin_shufflevector(four, four, 8, 9, 10, 11, 12, 13, 14, 15);
  return {__builtin_convertvector(low, Wide), __builtin_convertvector(high, Wide)};
}

void store(const Block& result, Byte* pixels) {
  const Half low = __builtin_convertvector(result.low, Half),
             high = __builtin_convertvector(result.high, Half);
  const Pixels four =
      __builtin_shufflevector(low, high, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
  std::memcpy(pixels, &four, sizeof four);
}

template <class Work>
Block both(const Block& a, const Block& b, const Work& work) {
  return {work(a.low, b.low), work(a.high, b.high)};
}

// Premultiplied, so that no sum exceeds 255.
Wide over(Wide above, Wide below) {
  const Wide alpha = __builtin_shufflevector(above, above, 3, 3, 3, 3, 7, 7, 7, 7);
  const Wide product = below * (255 - alpha) + 128;
  return above + ((product + (product >> 8)) >> 8);
}

void layOver(const Byte* above, Byte* below, int pixels) {
  int i = 0;
  for (; i + block <= pixels; i += block)
    store(both(load(above + i * channels), load(below + i * channels), over), below + i * channels);
  if (i == pixels) return;
  const auto rest = static_cast<std::size_t>(pixels - i) * channels;
  Byte last[2][block * channels] = {};
  std::memcpy(last[0], above + i * channels, rest);
  std::memcpy(last[1], below + i * channels, rest);
  store(both(load(last[0]), load(last[1]), over), last[1]);
  std::memcpy(below + i * channels, last[1], rest);
}

// Up to 128 · 255.
Block mixDown(const Byte* upper, const Byte* lower, int down) {
  const auto share = static_cast<std::uint16_t>(down), rest = static_cast<std::uint16_t>(steps - down);
  return both(load(upper), load(lower), [=](Wide above, Wide below) { return above * rest + below * share; });
}

// Of four neighbours: the rows have one pixel more than comes out.
Block mixBoth(const Byte* upper, const Byte* lower, int across, int down) {
  const auto share = static_cast<std::uint32_t>(across), rest = static_cast<std::uint32_t>(steps - across);
  return both(mixDown(upper, lower, down), mixDown(upper + channels, lower + channels, down),
              [=](Wide left, Wide right) {
                const Wider sum = __builtin_convertvector(left, Wider) * rest +
                                  __builtin_convertvector(right, Wider) * share;
                return __builtin_convertvector(sum >> (2 * stepBits), Wide);
              });
}

Block mixBlock(const Byte* upper, const Byte* lower, int across, int down) {
  if (across > 0) return mixBoth(upper, lower, across, down);
  const Block sum = mixDown(upper, lower, down);
  return {sum.low >> stepBits, sum.high >> stepBits};
}

void mix(const Byte* upper, const Byte* lower, Byte* out, int pixels, int across, int down) {
  int i = 0;
  for (; i + block <= pixels; i += block) {
    const int place = i * channels;
    store(mixBlock(upper + place, lower + place, across, down), out + place);
  }
  if (i == pixels) return;
  const std::ptrdiff_t place = std::ptrdiff_t{i} * channels;
  const auto rest = static_cast<std::size_t>(pixels - i) * channels;
  const std::size_t taken = rest + (across > 0 ? channels : 0);
  Byte last[2][(block + 1) * channels] = {};
  std::memcpy(last[0], upper + place, taken);
  std::memcpy(last[1], lower + place, taken);
  store(mixBlock(last[0], last[1], across, down), last[0]);
  std::memcpy(out + place, last[0], rest);
}

RowSpan noInk(int width) { return {width, width, 0, 0}; }

// A row of the image with clear pixels about it, as far as it is asked for.
class Rows {
 public:
  Rows(cairo_surface_t* of, const std::vector<RowSpan>& spansOfRows)
      : image(of), spans(spansOfRows), width(cairo_image_surface_get_width(of)) {}

  bool has(int y) const { return y >= 0 && y < static_cast<int>(spans.size()); }
  RowSpan span(int y) const { return has(y) ? spans[static_cast<std::size_t>(y)] : noInk(width); }

  // The pixels from `begin` up to `end`, which may lie beyond the row.
  const Byte* at(int y, int begin, int end, std::vector<Byte>& room) const {
    if (has(y) && begin >= 0 && end <= width) return rowOf(image, y) + std::ptrdiff_t{begin} * channels;
    room.assign(static_cast<std::size_t>(end - begin) * channels, 0);
    const int first = std::max(begin, 0), last = std::min(end, width);
    if (has(y) && first < last)
      std::memcpy(&room[static_cast<std::size_t>(first - begin) * channels],
                  rowOf(image, y) + std::ptrdiff_t{first} * channels,
                  static_cast<std::size_t>(last - first) * channels);
    return room.data();
  }

 private:
  cairo_surface_t* image;
  const std::vector<RowSpan>& spans;
  int width;
};

RowSpan spanOf(const std::uint32_t* pixels, int width) {
  const auto* const end = pixels + width;
  const auto isInk = [](std::uint32_t pixel) { return pixel != 0; };
  const auto isOpaque = [](std::uint32_t pixel) { return pixel >> 24 == 0xff; };
  const auto* const ink = std::find_if(pixels, end, isInk);
  if (ink == end) return noInk(width);
  const auto* inkEnd = end;
  while (inkEnd > ink && !isInk(inkEnd[-1])) --inkEnd;
  const auto* best = inkEnd;
  const auto* bestEnd = inkEnd;
  for (const auto* begin = std::find_if(ink, inkEnd, isOpaque); begin < inkEnd;) {
    const auto* const stop = std::find_if_not(begin, inkEnd, isOpaque);
    if (stop - begin > bestEnd - best) best = begin, bestEnd = stop;
    begin = std::find_if(stop, inkEnd, isOpaque);
  }
  const auto place = [pixels](const std::uint32_t* pixel) { return static_cast<int>(pixel - pixels); };
  return {place(ink), place(best), place(bestEnd), place(inkEnd)};
}

}  // namespace

std::vector<RowSpan> spansOf(cairo_surface_t* image) {
  cairo_surface_flush(image);
  const int width = cairo_image_surface_get_width(image);
  std::vector<RowSpan> spans;
  for (int y = 0; y < cairo_image_surface_get_height(image); ++y)
    spans.push_back(spanOf(reinterpret_cast<const std::uint32_t*>(rowOf(image, y)), width));
  return spans;
}

void layOver(cairo_surface_t* target, const PixelRect& rect, cairo_surface_t* image,
             const std::vector<RowSpan>& spans, FixedPoint from) {
  const int across = from.x >> (fractionBits - stepBits) & (steps - 1);
  const int down = from.y >> (fractionBits - stepBits) & (steps - 1);
  const int left = from.x >> fractionBits, top = from.y >> fractionBits;
  const int more = across > 0 ? 1 : 0;  // pixels to the right that take part
  const Rows rows(image, spans);
  std::vector<Byte> above, below, mixed(static_cast<std::size_t>(rect.width) * channels);
  cairo_surface_flush(target);
  for (int y = rect.y; y < rect.y + rect.height; ++y) {
    const int row = y + top;
    const RowSpan upper = rows.span(row), lower = down > 0 ? rows.span(row + 1) : upper;
    // In pixels of the target.
    const int begin = std::max(std::min(upper.inkBegin, lower.inkBegin) - more - left, rect.x);
    const int end = std::min(std::max(upper.inkEnd, lower.inkEnd) - left, rect.x + rect.width);
    if (begin >= end) continue;
    const int opaque = std::clamp(std::max(upper.opaqueBegin, lower.opaqueBegin) - left, begin, end);
    const int opaqueEnd = std::clamp(std::min(upper.opaqueEnd, lower.opaqueEnd) - more - left, opaque, end);
    Byte* const out = rowOf(target, y);
    const auto paint = [&](int first, int last, bool isOpaque) {
      if (first >= last) return;
      const int pixels = last - first;
      Byte* const place = out + std::ptrdiff_t{first} * channels;
      const Byte* const one = rows.at(row, first + left, last + left + more, above);
      if (across == 0 && down == 0) {
        if (isOpaque)
          std::memcpy(place, one, static_cast<std::size_t>(pixels) * channels);
        else
          layOver(one, place, pixels);
        return;
      }
      const Byte* const other = down > 0 ? rows.at(row + 1, first + left, last + left + more, below) : one;
      Byte* const result = isOpaque ? place : mixed.data();
      mix(one, other, result, pixels, across, down);
      if (!isOpaque) layOver(result, place, pixels);
    };
    paint(begin, opaque, false);
    paint(opaque, opaqueEnd, true);
    paint(opaqueEnd, end, false);
  }
  cairo_surface_mark_dirty_rectangle(target, rect.x, rect.y, rect.width, rect.height);
}

}  // namespace sim
