// Pictures of the screen on their way to a page: what has changed, in tiles, compressed as one picture.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/region.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim::serve {

/** Pixels. */
inline constexpr int tileSide = 64;

/** Which tiles of a picture something is true of; row by row. */
class Tiles {
 public:
  Tiles() = default;
  /** None of a picture of that size in pixels. */
  Tiles(int width, int height);
  /**
   * Those in which two pictures differ, which is nowhere but within the region: all of them where the sizes
   * do, or where there is no earlier one.
   */
  static Tiles changed(cairo_surface_t* before, cairo_surface_t* now, const Region& within);

  bool any() const;
  /** How many a row of the picture has. */
  int across() const { return columns; }
  long count() const;
  bool isShapedAs(const Tiles& others) const { return width == others.width && height == others.height; }
  /** Those of a picture of another size say nothing. */
  void add(const Tiles& others);
  void remove(const Tiles& others);
  /** None of the same picture. */
  Tiles none() const { return {width, height}; }
  /** Where they lie, row by row; at the right and lower edge a tile may be smaller than others. */
  std::vector<PixelRect> rectangles() const;

 private:
  PixelRect tileAt(int column, int row) const;

  int width = 0, height = 0, columns = 0, rows = 0;
  std::vector<bool> marked;
};

/** Quick and nearly the same, for what moves; or to the last bit. */
enum class Codec : std::uint8_t { jpeg, webp };

/**
 * A message to a page: the frame's number, the picture's size in pixels and in points, the codec, a tile's
 * side, how many tiles are side by side in the sheet, how many there are, column and row of each; then the
 * sheet, a compressed picture with all of them. Numbers are little-endian. There is one tile at least. Throws
 * std::runtime_error when there is no memory.
 */
std::string encodeFrame(std::uint32_t number, cairo_surface_t* picture, CGSize points, const Tiles& tiles,
                        Codec codec);

}  // namespace sim::serve
