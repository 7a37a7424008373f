// A part of a picture, as rectangles that do not overlap.
#pragma once

#include <span>
#include <vector>

namespace sim {

/** Whole pixels. */
struct PixelRect {
  int x, y, width, height;
  bool operator==(const PixelRect&) const = default;
};

inline bool isEmpty(const PixelRect& rect) { return rect.width <= 0 || rect.height <= 0; }
bool overlap(const PixelRect& a, const PixelRect& b);
bool contains(const PixelRect& outer, const PixelRect& inner);
PixelRect intersection(const PixelRect& a, const PixelRect& b);
/** Around both; an empty one counts for nothing. */
PixelRect unionOf(const PixelRect& a, const PixelRect& b);

/** What is left of the rectangles without the holes, in rectangles that do not overlap if the first ones do
 * not. */
std::vector<PixelRect> without(std::span<const PixelRect> rectangles, std::span<const PixelRect> holes);

class Region {
 public:
  /** Rectangles that come to overlap become the one around them: what is added lies within one of them. */
  void add(PixelRect rect);
  void clear() { disjoint.clear(); }
  bool isEmpty() const { return disjoint.empty(); }
  std::span<const PixelRect> rectangles() const { return disjoint; }
  /** Whether it has some of the rectangle, but in no one of its own all of it. */
  bool cuts(const PixelRect& rect) const;

 private:
  std::vector<PixelRect> disjoint;
};

}  // namespace sim
