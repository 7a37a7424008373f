// A screen that is painted again only where it has changed.
#pragma once

#include <cstddef>
#include <span>

#include "simulator/quartz/display_list.hpp"
#include "simulator/quartz/region.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/**
 * What is painted is remembered as numbers. The next picture begins as the one before, and what differs in
 * numbers is painted over. Layers in the back that stay as they are while others move are kept as one
 * picture.
 */
class PaintedScreen {
 public:
  /**
   * The roots as they are seen at `now` (seconds), the last of them in front, over opaque black: an ARGB32
   * image in pixels, `scale` of them per point. It depends on nothing but these, and is the same whatever was
   * drawn before. It stays as it is for as long as somebody holds it, and is not to be painted on. Throws
   * std::runtime_error when cairo fails.
   */
  Surface draw(std::span<Layer* const> roots, double now, int pixelWidth, int pixelHeight, double scale);

  /** Where the last picture may differ from the one before. */
  const Region& changed() const { return damage; }

 private:
  void show(DisplayList list, std::size_t common, const PixelRect& all, double scale);
  void keepBackdrop(DisplayList& list, std::size_t common, const PixelRect& all, double scale);
  Surface target(const PixelRect& all, const Region& painted) const;

  DisplayList shown;       // what `picture` shows, without nodes
  Surface picture, other;  // the last one; another of its size, to be painted when that one is held
  Region stale;            // where the other differs from the last one
  Region damage;
  Surface backdrop;  // the first entries alone
  std::size_t backdropEntries = 0;
  std::size_t lastCommon = 0;  // how many first entries were as they had been, the last time
};

}  // namespace sim
