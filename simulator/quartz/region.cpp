// Rectangles of whole pixels.
#include "simulator/quartz/region.hpp"

#include <algorithm>
#include <utility>

namespace sim {

bool overlap(const PixelRect& a, const PixelRect& b) { return !isEmpty(intersection(a, b)); }

bool contains(const PixelRect& outer, const PixelRect& inner) {
  return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
         inner.y + inner.height <= outer.y + outer.height;
}

PixelRect intersection(const PixelRect& a, const PixelRect& b) {
  const int left = std::max(a.x, b.x), top = std::max(a.y, b.y);
  return {left, top, std::min(a.x + a.width, b.x + b.width) - left,
          std::min(a.y + a.height, b.y + b.height) - top};
}

PixelRect unionOf(const PixelRect& a, const PixelRect& b) {
  if (isEmpty(a)) return b;
  if (isEmpty(b)) return a;
  const int left = std::min(a.x, b.x), top = std::min(a.y, b.y);
  return {left, top, std::max(a.x + a.width, b.x + b.width) - left,
          std::max(a.y + a.height, b.y + b.height) - top};
}

std::vector<PixelRect> without(std::span<const PixelRect> rectangles, std::span<const PixelRect> holes) {
  std::vector<PixelRect> left(rectangles.begin(), rectangles.end());
  for (const PixelRect& hole : holes) {
    std::vector<PixelRect> next;
    for (const PixelRect& rect : left) {
      const PixelRect cut = intersection(rect, hole);
      if (isEmpty(cut)) {
        next.push_back(rect);
        continue;
      }
      const int right = cut.x + cut.width, bottom = cut.y + cut.height;
      for (const PixelRect& part : {PixelRect{rect.x, rect.y, rect.width, cut.y - rect.y},
                                    PixelRect{rect.x, cut.y, cut.x - rect.x, cut.height},
                                    PixelRect{right, cut.y, rect.x + rect.width - right, cut.height},
                                    PixelRect{rect.x, bottom, rect.width, rect.y + rect.height - bottom}})
        if (!isEmpty(part)) next.push_back(part);
    }
    left = std::move(next);
  }
  return left;
}

void Region::add(PixelRect rect) {
  if (sim::isEmpty(rect)) return;
  for (;;) {
    const auto met = std::ranges::find_if(disjoint, [&](const PixelRect& one) { return overlap(one, rect); });
    if (met == disjoint.end()) break;
    rect = unionOf(rect, *met);
    disjoint.erase(met);
  }
  disjoint.push_back(rect);
}

bool Region::cuts(const PixelRect& rect) const {
  bool some = false;
  for (const PixelRect& one : disjoint) {
    if (contains(one, rect)) return false;
    some = some || overlap(one, rect);
  }
  return some;
}

}  // namespace sim
