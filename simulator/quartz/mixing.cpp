// Mixing with whole numbers.
#include "simulator/quartz/mixing.hpp"

#include <cstring>

// The compiler makes one for the units that every processor of a kind has, and one for wider units. The
// choice is made before the thread sanitizer is there, which ends the process.
#if defined(__x86_64__) && !__has_feature(thread_sanitizer)
#define FOR_EACH_PROCESSOR [[gnu::target_clones("avx2", "default")]]
#else
#define FOR_EACH_PROCESSOR
#endif

namespace sim {
namespace {

constexpr int stepBits = 7;
constexpr int block = 8;  // pixels

using Byte = std::uint8_t;
// Of a block: its pixels, and their channels two by two. They are handed on by reference, as they go by other
// registers where there are wider ones.
using Pixels [[gnu::vector_size(block * channels)]] = std::uint32_t;
using Pairs [[gnu::vector_size(block * channels)]] = std::uint16_t;
using WidePairs [[gnu::vector_size(2 * block * channels)]] = std::uint32_t;
constexpr std::uint16_t lowByte = 0xff, highByte = 0xff00;

inline void load(const Byte* pixels, Pairs& pairs) { std::memcpy(&pairs, pixels, sizeof pairs); }
inline void store(const Pairs& pairs, Byte* pixels) { std::memcpy(pixels, &pairs, sizeof pairs); }

// Premultiplied, so that no sum exceeds 255.
inline void layBlockOver(const Byte* above, Byte* below) {
  Pairs one, other;
  load(above, one);
  load(below, other);
  const Pixels alpha = reinterpret_cast<Pixels>(one) >> 24, twice = alpha << 16 | alpha;
  const Pairs rest = 255 - reinterpret_cast<Pairs>(twice);
  const Pairs even = (other & lowByte) * rest + 128, odd = (other >> 8) * rest + 128;
  store(one + ((even + (even >> 8)) >> 8 | ((odd + (odd >> 8)) & highByte)), below);
}

// The first of each two channels and the second: up to 128 · 255.
inline void mixDown(const Byte* upper, const Byte* lower, int down, Pairs& even, Pairs& odd) {
  const auto share = static_cast<std::uint16_t>(down), rest = static_cast<std::uint16_t>(mixingSteps - down);
  Pairs above, below;
  load(upper, above);
  load(lower, below);
  even = (above & lowByte) * rest + (below & lowByte) * share;
  odd = (above >> 8) * rest + (below >> 8) * share;
}

inline void mixAcross(const Pairs& left, const Pairs& right, int across, Pairs& mixed) {
  const WidePairs sum =
      __builtin_convertvector(left, WidePairs) * static_cast<std::uint32_t>(mixingSteps - across) +
      __builtin_convertvector(right, WidePairs) * static_cast<std::uint32_t>(across);
  mixed = __builtin_convertvector(sum >> (2 * stepBits), Pairs);
}

// With `across`, of neighbours: the rows have one pixel more than comes out.
inline void mixBlock(const Byte* upper, const Byte* lower, Byte* out, int across, int down) {
  Pairs even, odd;
  mixDown(upper, lower, down, even, odd);
  if (across == 0) return store(even >> stepBits | (odd << (8 - stepBits) & highByte), out);
  Pairs nextEven, nextOdd;
  mixDown(upper + channels, lower + channels, down, nextEven, nextOdd);
  mixAcross(even, nextEven, across, even);
  mixAcross(odd, nextOdd, across, odd);
  store(even | odd << 8, out);
}

// A pixel and the next one, whose sums leave a sign bit.
using Neighbours [[gnu::vector_size(2 * channels * 2)]] = std::int16_t;
using Channels [[gnu::vector_size(channels * 4)]] = std::int32_t;
constexpr int few = 4;  // pixels that are mixed at once

// Of some pixels of two rows, channel by channel.
inline void sumDown(const Byte* upper, const Byte* lower, int down, std::uint16_t* sums) {
  using Some [[gnu::vector_size(few * channels)]] = Byte;
  using Sums [[gnu::vector_size(few * channels * 2)]] = std::uint16_t;
  const auto share = static_cast<std::uint16_t>(down), rest = static_cast<std::uint16_t>(mixingSteps - down);
  Some above, below;
  std::memcpy(&above, upper, sizeof above);
  std::memcpy(&below, lower, sizeof below);
  const Sums all = __builtin_convertvector(above, Sums) * rest + __builtin_convertvector(below, Sums) * share;
  std::memcpy(sums, &all, sizeof all);
}

inline void mixNeighbours(const std::uint16_t* sums, std::int32_t sharesOfBoth, Channels& mixed) {
  using Products [[gnu::vector_size(2 * channels * 4)]] = std::int32_t;
  Neighbours two;
  std::memcpy(&two, sums, sizeof two);
  // As they are multiplied with what is taken of each.
  two = __builtin_shufflevector(two, two, 0, 4, 1, 5, 2, 6, 3, 7);
  const Channels shares = Channels{} + sharesOfBoth;
  const Products products = __builtin_convertvector(two, Products) *
                            __builtin_convertvector(reinterpret_cast<Neighbours>(shares), Products);
  mixed = (__builtin_shufflevector(products, products, 0, 2, 4, 6) +
           __builtin_shufflevector(products, products, 1, 3, 5, 7)) >>
          (2 * stepBits);
}

}  // namespace

FOR_EACH_PROCESSOR void layRowOver(const Byte* above, Byte* below, int pixels) {
  if (pixels < block) {
    const auto length = static_cast<std::size_t>(pixels) * channels;
    Byte padded[2][block * channels] = {};
    std::memcpy(padded[0], above, length);
    std::memcpy(padded[1], below, length);
    layBlockOver(padded[0], padded[1]);
    std::memcpy(below, padded[1], length);
    return;
  }
  // The last block may overlap the one before: it is made of what is there first.
  const std::ptrdiff_t end = std::ptrdiff_t{pixels - block} * channels;
  Byte last[block * channels];
  std::memcpy(last, below + end, sizeof last);
  layBlockOver(above + end, last);
  for (int i = 0; i + block <= pixels; i += block) layBlockOver(above + i * channels, below + i * channels);
  std::memcpy(below + end, last, sizeof last);
}

FOR_EACH_PROCESSOR void mixRows(const Byte* upper, const Byte* lower, Byte* out, int pixels, int across,
                                int down) {
  if (pixels < block) {
    const std::size_t taken = static_cast<std::size_t>(pixels + (across > 0 ? 1 : 0)) * channels;
    Byte padded[2][(block + 1) * channels] = {};
    std::memcpy(padded[0], upper, taken);
    std::memcpy(padded[1], lower, taken);
    Byte mixed[block * channels];
    mixBlock(padded[0], padded[1], mixed, across, down);
    std::memcpy(out, mixed, static_cast<std::size_t>(pixels) * channels);
    return;
  }
  for (int i = 0; i + block <= pixels; i += block)
    mixBlock(upper + i * channels, lower + i * channels, out + i * channels, across, down);
  const std::ptrdiff_t end = std::ptrdiff_t{pixels - block} * channels;
  mixBlock(upper + end, lower + end, out + end, across, down);
}

FOR_EACH_PROCESSOR void mixScaled(const Byte* upper, const Byte* lower, Byte* out,
                                  std::span<const Place> places, int down, std::vector<std::uint16_t>& room) {
  const int first = places.front().pixel, count = places.back().pixel - first + 2;
  if (const auto needed = static_cast<std::size_t>((count + few) * channels); room.size() < needed)
    room.resize(needed);
  std::uint16_t* const sums = room.data();
  int i = 0;
  for (; i + few <= count; i += few)
    sumDown(upper + i * channels, lower + i * channels, down, sums + i * channels);
  if (i < count) {
    const std::size_t rest = static_cast<std::size_t>(count - i) * channels;
    Byte padded[2][few * channels] = {};
    std::memcpy(padded[0], upper + i * channels, rest);
    std::memcpy(padded[1], lower + i * channels, rest);
    sumDown(padded[0], padded[1], down, sums + i * channels);
  }
  const auto mix = [&](const Place& place, Channels& mixed) {
    mixNeighbours(sums + (place.pixel - first) * channels, place.shares, mixed);
  };
  std::size_t k = 0;
  for (; k + few <= places.size(); k += few) {
    Channels pixels[few];
    for (std::size_t j = 0; j < few; ++j) mix(places[k + j], pixels[j]);
    using All [[gnu::vector_size(few * channels * 4)]] = std::int32_t;
    using Bytes [[gnu::vector_size(few * channels)]] = Byte;
    All all;
    std::memcpy(&all, pixels, sizeof all);
    const Bytes bytes = __builtin_convertvector(all, Bytes);
    std::memcpy(out + k * channels, &bytes, sizeof bytes);
  }
  for (; k < places.size(); ++k) {
    Channels pixel;
    mix(places[k], pixel);
    for (std::size_t c = 0; c < channels; ++c) out[k * channels + c] = static_cast<Byte>(pixel[c]);
  }
}

}  // namespace sim
