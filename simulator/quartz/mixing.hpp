// Rows of premultiplied pixels, mixed with their neighbours and laid over others: whole numbers in vectors of
// the compiler's, which come out the same on every processor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace sim {

inline constexpr int channels = 4;
inline constexpr int mixingSteps = 128;  // between two pixels

/** Over what is there. */
void layRowOver(const std::uint8_t* above, std::uint8_t* below, int pixels);

/** Between two rows and, when `across` is more than 0, each pixel and the next one. Steps are below 128. */
void mixRows(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out, int pixels, int across,
             int down);

/**
 * Between two rows, with pixels that lie `step` apart, the first at `from`, both in 65536ths of a pixel.
 * `room` is what it works in.
 */
void mixScaled(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out, int pixels, int from,
               int step, int down, std::vector<std::uint16_t>& room);

}  // namespace sim
