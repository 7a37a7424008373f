// Rectangles and parts, as the progress views draw them.
#pragma once

#include <algorithm>

#include "platform/coregraphics/geometry.hpp"

namespace tilo {

// Progress as what can be drawn of it: nothing of what is no number.
inline CGFloat partOf(float progress) {
  return static_cast<CGFloat>(std::max(0.0f, std::min(progress, 1.0f)));
}

inline CGRect insetBy(const CGRect& rect, CGFloat inset) {
  return {{rect.origin.x + inset, rect.origin.y + inset},
          {rect.size.width - 2 * inset, rect.size.height - 2 * inset}};
}

inline CGPoint middleOf(const CGRect& rect) {
  return {rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
}

inline CGFloat smallerSideOf(const CGRect& rect) { return std::min(rect.size.width, rect.size.height); }

// The largest square in the middle.
inline CGRect squareIn(const CGRect& rect) {
  const CGFloat side = smallerSideOf(rect);
  const CGPoint middle = middleOf(rect);
  return {{middle.x - side / 2, middle.y - side / 2}, {side, side}};
}

}  // namespace tilo
