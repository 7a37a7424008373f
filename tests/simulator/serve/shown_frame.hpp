// A frame as a page understands it.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace test {

struct ShownFrame {
  std::uint32_t number = 0;
  int width = 0, height = 0, pointsAcross = 0, pointsDown = 0, codec = -1, tileSide = 0, across = 0;
  std::vector<std::pair<int, int>> places;  // column and row of each tile
  int sheetWidth = 0, sheetHeight = 0;
  std::vector<std::uint32_t> sheet;  // opaque pixels, row by row

  /** A pixel of one of the tiles, as it is in the sheet. */
  std::uint32_t pixel(std::size_t tile, int x, int y) const;
};

inline constexpr int likeness = 0, exact = 1;  // codecs

/** Fails the test for what is no frame. */
ShownFrame readFrame(const std::string& message);

}  // namespace test
