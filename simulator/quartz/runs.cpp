// Finding what is plain.
#include "simulator/quartz/runs.hpp"

#include <algorithm>
#include <cstring>
#include <ranges>
#include <span>
#include <utility>

namespace sim {
namespace {

constexpr std::uint32_t opaqueAlpha = 0xff;

bool isOpaque(std::uint32_t pixel) { return pixel >> 24 == opaqueAlpha; }

// Of two rows that follow each other.
Runs::Kind kindOf(const std::uint32_t* upper, const std::uint32_t* lower, int width) {
  Runs::Kind kind{{}, 0, 0};
  int opaqueSince = 0;  // where the opaque stretch begins that ends at `x`
  for (int x = 0; x < width;) {
    const std::uint32_t one = upper[x], other = lower[x];
    int end = x + 1;
    while (end < width && upper[end] == one && lower[end] == other) ++end;
    if (end - x >= Runs::shortest) kind.runs.push_back({x, end, one, other});
    const bool isStretch = isOpaque(one) && isOpaque(other);
    x = end;
    if (!isStretch) opaqueSince = x;
    if (x - opaqueSince > kind.opaqueEnd - kind.opaqueBegin)
      std::tie(kind.opaqueBegin, kind.opaqueEnd) = std::pair(opaqueSince, x);
  }
  return kind;
}

// Up to where two rows that are not alike are so from their ends.
Runs::Stretch differenceOf(std::span<const std::uint32_t> upper, std::span<const std::uint32_t> lower) {
  const auto first = std::ranges::mismatch(upper, lower).in1;
  const auto last = std::ranges::mismatch(upper | std::views::reverse, lower | std::views::reverse).in1;
  return {static_cast<int>(first - upper.begin()), static_cast<int>(last.base() - upper.begin())};
}

}  // namespace

Runs::Runs(cairo_surface_t* image) {
  cairo_surface_flush(image);
  const int width = cairo_image_surface_get_width(image), height = cairo_image_surface_get_height(image);
  const std::vector<std::uint32_t> clear(static_cast<std::size_t>(width));
  const auto pixels = [&](int row) {
    if (row < 0 || row >= height) return clear.data();
    return reinterpret_cast<const std::uint32_t*>(
        cairo_image_surface_get_data(image) + std::ptrdiff_t{row} * cairo_image_surface_get_stride(image));
  };
  bool wasLikeNext = false;
  for (int row = -1; row < height; ++row) {
    const std::span upper(pixels(row), clear.size()), lower(pixels(row + 1), clear.size());
    const bool isLikeNext = std::memcmp(upper.data(), lower.data(), upper.size_bytes()) == 0;
    differences.push_back(isLikeNext ? Stretch{0, 0} : differenceOf(upper, lower));
    if (!(wasLikeNext && isLikeNext)) {
      Kind kind = sim::kindOf(pixels(row), pixels(row + 1), width);
      if (kinds.empty() || kind != kinds.back()) kinds.push_back(std::move(kind));
    }
    wasLikeNext = isLikeNext;
    rows.push_back(kinds.size() - 1);
  }
  opaquePart = findOpaque();
}

// What the middle row has of it, as far up and down as others have it too: all of a card but its corners.
PixelRect Runs::findOpaque() const {
  const int middle = static_cast<int>(rows.size()) / 2 - 1;
  const auto& [runs, begin, end] = kind(kindOf(middle));
  if (begin == end) return {};
  const auto isWithin = [&](int row) {
    return has(row) && kind(kindOf(row)).opaqueBegin <= begin && kind(kindOf(row)).opaqueEnd >= end;
  };
  int first = middle, last = middle;
  while (isWithin(first - 1)) --first;
  while (isWithin(last + 1)) ++last;
  return {begin, first, end - begin, last + 2 - first};
}

}  // namespace sim
