// Where a picture is plain: stretches of its rows of which one pixel tells all when it is laid over others.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "simulator/quartz/region.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/** Pixels of a row that are all alike, as are those below them, in the next row: but maybe not as the upper
 * ones. */
struct Run {
  int begin, end;
  std::uint32_t upper, lower;

  bool isClear() const { return upper == 0 && lower == 0; }
  bool operator==(const Run&) const = default;
};

/** Of an ARGB32 image, and the clear rows above and below it. */
class Runs {
 public:
  /** What is shorter is mixed as quickly as it is told of. */
  static constexpr int shortest = 32;

  Runs() = default;
  explicit Runs(cairo_surface_t* image);

  /** Which runs a row and the next one have: rows with the same number have the same. From -1. */
  std::size_t kindOf(int row) const { return rows[static_cast<std::size_t>(row + 1)]; }
  bool has(int row) const { return row >= -1 && row + 1 < static_cast<int>(rows.size()); }

  struct Stretch {
    int begin, end;
  };
  struct Kind {
    std::vector<Run> runs;       // from left to right
    int opaqueBegin, opaqueEnd;  // the longest stretch that is opaque, whatever its colours
    bool operator==(const Kind&) const = default;
  };
  const Kind& kind(std::size_t number) const { return kinds[number]; }

  /** Whether a row has the same pixels as the next one from `begin` up to `end`, which may lie beyond it. */
  bool isLikeNext(int row, int begin, int end) const {
    const Stretch& other = differences[static_cast<std::size_t>(row + 1)];
    return std::max(begin, other.begin) >= std::min(end, other.end);
  }

  /** A large part that is opaque, in pixels of the image. */
  const PixelRect& opaque() const { return opaquePart; }

 private:
  PixelRect findOpaque() const;

  std::vector<Kind> kinds;
  std::vector<std::size_t> rows;
  std::vector<Stretch> differences;  // where all pixels lie in which a row is other than the next
  PixelRect opaquePart{};
};

}  // namespace sim
