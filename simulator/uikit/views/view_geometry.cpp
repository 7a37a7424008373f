// UIView's geometry: frames, autoresizing and coordinates.
#include <array>

#include "simulator/uikit/drawing/layer.hpp"
#include "simulator/uikit/views/view_methods.hpp"

namespace sim::uikit {
namespace {

struct Span {
  double start, length;
};

// One axis. The flexible parts share what the superview gained or lost in proportion to their lengths.
Span autoresizedSpan(Span part, bool marginBefore, bool length, bool marginAfter, double before,
                     double after) {
  std::array<double, 3> parts{part.start, part.length, before - part.start - part.length};
  const std::array<bool, 3> flexible{marginBefore, length, marginAfter};
  double total = 0;
  int count = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!flexible[i]) continue;
    total += parts[i];
    ++count;
  }
  if (count == 0) return part;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (!flexible[i]) continue;
    parts[i] += (after - before) * (total == 0 ? 1.0 / count : parts[i] / total);
  }
  return {parts[0], std::max(parts[1], 0.0)};
}

void autoresizeSubviews(UIView view, CGSize oldSize) {
  const CGSize newSize = layerOf(view).bounds.size;
  const auto subviews = stateOf(view).subviews;  // a setter may change the tree
  for (const auto& subview : subviews) {
    const CGRect frame = subview->frame();
    const CGRect moved = autoresized(frame, stateOf(subview).autoresizingMask, oldSize, newSize);
    if (!(moved == frame)) subview->frame.set(moved);
  }
}

// Without a view: the coordinates of the window, or of the top of a tree that is in none.
const Layer* target(UIView view, UIView other) {
  if (other) return &layerOf(other);
  UIView top = view;
  while (stateOf(top).superview) top = stateOf(top).superview;
  return &layerOf(top);
}

}  // namespace

CGRect autoresized(const CGRect& frame, NSUInteger mask, CGSize oldSize, CGSize newSize) {
  const Span x =
      autoresizedSpan({frame.origin.x, frame.size.width}, mask & UIViewAutoresizingFlexibleLeftMargin,
                      mask & UIViewAutoresizingFlexibleWidth, mask & UIViewAutoresizingFlexibleRightMargin,
                      oldSize.width, newSize.width);
  const Span y =
      autoresizedSpan({frame.origin.y, frame.size.height}, mask & UIViewAutoresizingFlexibleTopMargin,
                      mask & UIViewAutoresizingFlexibleHeight, mask & UIViewAutoresizingFlexibleBottomMargin,
                      oldSize.height, newSize.height);
  return {{x.start, y.start}, {x.length, y.length}};
}

void boundsChanged(UIView view, const CGRect& old) {
  const CGSize size = layerOf(view).bounds.size;
  if (size == old.size) return;
  // A content that had no room was not drawn.
  if (old.size.width <= 0 || old.size.height <= 0) layerOf(view).setNeedsDisplay();
  if (stateOf(view).autoresizesSubviews) autoresizeSubviews(view, old.size);
  view.setNeedsLayout();
}

namespace view {

CGRect frame(UIView self) { return layerOf(self).frame(); }
void setFrame(UIView self, CGRect frame) { uikit::setFrame(layerObjectOf(self), frame); }
CGRect bounds(UIView self) { return layerOf(self).bounds; }
void setBounds(UIView self, CGRect bounds) { uikit::setBounds(layerObjectOf(self), bounds); }
CGPoint center(UIView self) { return layerOf(self).position; }
void setCenter(UIView self, CGPoint center) { setPosition(layerObjectOf(self), center); }
CGAffineTransform transform(UIView self) { return layerOf(self).transform; }
void setTransform(UIView self, CGAffineTransform transform) {
  uikit::setTransform(layerObjectOf(self), transform);
}

CGSize sizeThatFits(UIView self, CGSize) { return layerOf(self).bounds.size; }

void sizeToFit(UIView self) {
  const CGRect bounds = self.bounds();
  // Keeps the upper left corner, as setting the bounds alone would not.
  if (self.transform() == identityTransform)
    self.frame.set({self.frame().origin, self.sizeThatFits(bounds.size)});
  else
    self.bounds.set({bounds.origin, self.sizeThatFits(bounds.size)});
}

CGPoint convertPointTo(UIView self, CGPoint point, UIView view) {
  return sim::convertPoint(point, &layerOf(self), target(self, view));
}

CGPoint convertPointFrom(UIView self, CGPoint point, UIView view) {
  return sim::convertPoint(point, target(self, view), &layerOf(self));
}

CGRect convertRectTo(UIView self, CGRect rect, UIView view) {
  return sim::convertRect(rect, &layerOf(self), target(self, view));
}

CGRect convertRectFrom(UIView self, CGRect rect, UIView view) {
  return sim::convertRect(rect, target(self, view), &layerOf(self));
}

}  // namespace view
}  // namespace sim::uikit
