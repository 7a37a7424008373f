// What a screen shows, in the order in which it is painted: to be compared with what it showed before.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "simulator/quartz/region.hpp"
#include "simulator/quartz/render_node.hpp"

namespace sim {

/** Something that is painted in one go: a layer's ground, its border, or all of it with what is below it. */
struct DisplayEntry {
  std::uint64_t key;  // of the layer and the part
  PixelRect box;      // no pixel outside is touched
  bool isFixed;       // its pixels are the same wherever painting is clipped
  std::size_t begin;  // of its numbers; they end where the next entry's begin
  PixelRect cover;    // pixels that hide all that is behind it, as far as that is known
};

/** The nodes hold layers: they are for painting at once. The rest may be kept. */
struct DisplayList {
  std::vector<RenderNode> nodes;
  std::vector<DisplayEntry> entries;
  std::vector<double> numbers;  // all that makes the entries look as they do

  std::span<const double> numbersOf(std::size_t entry) const;
};

/** Of what is seen of the roots, the last of them in front, on a screen of that size. Draws contents that are
 * due. */
DisplayList listOf(std::span<Layer* const> roots, double now, const PixelRect& screen, double scale);

/** How many entries, from the back, are the same in both. */
std::size_t commonEntries(const DisplayList& before, const DisplayList& now);
/** Where the screen may have changed between the two, which have so many first entries in common. */
Region difference(const DisplayList& before, const DisplayList& now, std::size_t common);

}  // namespace sim
