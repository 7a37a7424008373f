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

constexpr int stepBits = 7, fractionBits = 16;
constexpr int block = 4;  // pixels

using Byte = std::uint8_t;
// Of a block: as it is stored; with room for a product of each; for a sum of products of products. They are
// handed on by reference, as they go by other registers where there are wider ones.
using Pixels [[gnu::vector_size(block * channels)]] = Byte;
using Wide [[gnu::vector_size(2 * block * channels)]] = std::uint16_t;
using Wider [[gnu::vector_size(4 * block * channels)]] = std::uint32_t;

inline void load(const Byte* pixels, Wide& wide) {
  Pixels four;
  std::memcpy(&four, pixels, sizeof four);
  wide = __builtin_convertvector(four, Wide);
}

inline void store(const Wide& wide, Byte* pixels) {
  const Pixels four = __builtin_convertvector(wide, Pixels);
  std::memcpy(pixels, &four, sizeof four);
}

// Premultiplied, so that no sum exceeds 255.
inline void layBlockOver(const Byte* above, Byte* below) {
  Wide one, other;
  load(above, one);
  load(below, other);
  const Wide alpha =
      __builtin_shufflevector(one, one, 3, 3, 3, 3, 7, 7, 7, 7, 11, 11, 11, 11, 15, 15, 15, 15);
  const Wide product = other * (255 - alpha) + 128;
  store(one + ((product + (product >> 8)) >> 8), below);
}

// Up to 128 · 255.
inline void mixDown(const Byte* upper, const Byte* lower, int down, Wide& sum) {
  Wide above, below;
  load(upper, above);
  load(lower, below);
  sum = above * static_cast<std::uint16_t>(mixingSteps - down) + below * static_cast<std::uint16_t>(down);
}

// With `across`, of four neighbours: the rows have one pixel more than comes out.
inline void mixBlock(const Byte* upper, const Byte* lower, Byte* out, int across, int down) {
  Wide left;
  mixDown(upper, lower, down, left);
  if (across == 0) return store(left >> stepBits, out);
  Wide right;
  mixDown(upper + channels, lower + channels, down, right);
  const Wider sum = __builtin_convertvector(left, Wider) * static_cast<std::uint32_t>(mixingSteps - across) +
                    __builtin_convertvector(right, Wider) * static_cast<std::uint32_t>(across);
  store(__builtin_convertvector(sum >> (2 * stepBits), Wide), out);
}

// One pixel from the sums of its two rows and of the next one's.
inline void mixAcross(const std::uint16_t* sums, Byte* out, int across) {
  using Two [[gnu::vector_size(16)]] = std::int16_t;  // the sums leave a sign bit
  using Products [[gnu::vector_size(32)]] = std::int32_t;
  using Sum [[gnu::vector_size(16)]] = std::int32_t;
  using Result [[gnu::vector_size(4)]] = Byte;
  const auto share = static_cast<std::int16_t>(across),
             rest = static_cast<std::int16_t>(mixingSteps - across);
  Two two;
  std::memcpy(&two, sums, sizeof two);
  const Two pairs = __builtin_shufflevector(two, two, 0, 4, 1, 5, 2, 6, 3, 7);
  const Two shares{rest, share, rest, share, rest, share, rest, share};
  const Products products =
      __builtin_convertvector(pairs, Products) * __builtin_convertvector(shares, Products);
  const Sum sum = __builtin_shufflevector(products, products, 0, 2, 4, 6) +
                  __builtin_shufflevector(products, products, 1, 3, 5, 7);
  const Result bytes = __builtin_convertvector(sum >> (2 * stepBits), Result);
  std::memcpy(out, &bytes, sizeof bytes);
}

}  // namespace

FOR_EACH_PROCESSOR void layRowOver(const Byte* above, Byte* below, int pixels) {
  if (pixels < block) {
    const auto length = static_cast<std::size_t>(pixels) * channels;
    Byte few[2][block * channels] = {};
    std::memcpy(few[0], above, length);
    std::memcpy(few[1], below, length);
    layBlockOver(few[0], few[1]);
    std::memcpy(below, few[1], length);
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
    Byte few[2][(block + 1) * channels] = {};
    std::memcpy(few[0], upper, taken);
    std::memcpy(few[1], lower, taken);
    Byte mixed[block * channels];
    mixBlock(few[0], few[1], mixed, across, down);
    std::memcpy(out, mixed, static_cast<std::size_t>(pixels) * channels);
    return;
  }
  for (int i = 0; i + block <= pixels; i += block)
    mixBlock(upper + i * channels, lower + i * channels, out + i * channels, across, down);
  const std::ptrdiff_t end = std::ptrdiff_t{pixels - block} * channels;
  mixBlock(upper + end, lower + end, out + end, across, down);
}

void mixScaled(const Byte* upper, const Byte* lower, Byte* out, int pixels, int from, int step, int down,
               std::vector<std::uint16_t>& room) {
  // Down first, for all that is taken.
  const int taken = ((from + (pixels - 1) * step) >> fractionBits) + 2;
  room.resize(static_cast<std::size_t>(taken) * channels);
  std::uint16_t* const sums = room.data();
  int i = 0;
  for (; i + block <= taken; i += block) {
    Wide sum;
    mixDown(upper + i * channels, lower + i * channels, down, sum);
    std::memcpy(sums + i * channels, &sum, sizeof sum);
  }
  for (int k = i * channels; k < taken * channels; ++k)
    sums[k] = static_cast<std::uint16_t>(upper[k] * (mixingSteps - down) + lower[k] * down);
  for (int k = 0, at = from; k < pixels; ++k, at += step)
    mixAcross(sums + (at >> fractionBits) * channels, out + k * channels,
              at >> (fractionBits - stepBits) & (mixingSteps - 1));
}

}  // namespace sim
