// Rows of premultiplied pixels, mixed with their neighbours and laid over others: whole numbers in vectors of
// the compiler's, which come out the same on every processor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace sim {

inline constexpr int channels = 4;
inline constexpr int mixingSteps = 128;  // between two pixels

/** Over what is there. */
void layRowOver(const std::uint8_t* above, std::uint8_t* below, int pixels);

/** Between two rows and, when `across` is more than 0, each pixel and the next one. Steps are below 128. */
void mixRows(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out, int pixels, int across,
             int down);

/** What a pixel is mixed of: the one of that number, and `across` steps of the next one. */
struct Place {
  Place(int number, int across) : pixel(number), shares(mixingSteps - across + (across << 16)) {}

  int pixel;
  std::int32_t shares;  // of both, in half of the bits each
};

/** Between two rows, which begin with the first place's pixel. `room` is what it works in. */
void mixScaled(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
               std::span<const Place> places, int down, std::vector<std::uint16_t>& room);

}  // namespace sim
