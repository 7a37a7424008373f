// Freezing a layer tree at one time.
#include "simulator/quartz/render_node.hpp"

#include <algorithm>

#include "simulator/quartz/blur.hpp"

namespace sim {
namespace {

CGRect outset(const CGRect& rect, double by) {
  return {{rect.origin.x - by, rect.origin.y - by}, {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}

CGRect intersection(const CGRect& a, const CGRect& b) {
  const double left = std::max(a.origin.x, b.origin.x), top = std::max(a.origin.y, b.origin.y);
  const double right = std::min(a.origin.x + a.size.width, b.origin.x + b.size.width);
  const double bottom = std::min(a.origin.y + a.size.height, b.origin.y + b.size.height);
  return {{left, top}, {std::max(right - left, 0.0), std::max(bottom - top, 0.0)}};
}

// Where a length of `content` begins in one of `container`: 0 at its start, ½ in the middle, 1 at its end.
double aligned(double container, double content, double fraction) { return (container - content) * fraction; }

}  // namespace

std::optional<RenderNode> freeze(Layer& layer, double now) {
  if (layer.hidden) return std::nullopt;
  RenderNode node{&layer, layer.presentation(now), {}, {}, {}, {}};
  if (!(node.values.opacity > 0)) return std::nullopt;
  node.toParent = layer.toParent(node.values);
  if (!hasInverse(node.toParent)) return std::nullopt;
  node.bodyExtents = node.values.bounds;
  node.children.reserve(layer.children().size());
  for (Layer* child : layer.children()) {
    auto frozen = freeze(*child, now);
    if (!frozen) continue;
    if (!layer.masksToBounds) {
      node.bodyExtents = unionOf(node.bodyExtents, boundingBox(frozen->toParent, frozen->extents));
    }
    node.children.push_back(std::move(*frozen));
  }
  if (!layer.masksToBounds && layer.contentsGravity != ContentsGravity::resize) {
    const CGRect content = contentRect(node.values.bounds, layer.contentSize(), layer.contentsGravity);
    node.bodyExtents = unionOf(node.bodyExtents, content);
  }
  node.bodyExtents = intersection(node.bodyExtents, outset(node.values.bounds, farthestOverhang));
  node.extents = node.bodyExtents;
  if (castsShadow(layer)) {
    // Of one pixel more than the blur reaches at any scale of 1 or above.
    CGRect shadow = outset(node.bodyExtents, blurReach(layer.shadowRadius) + 1);
    shadow.origin.x += layer.shadowOffset.width;
    shadow.origin.y += layer.shadowOffset.height;
    node.extents = unionOf(node.extents, shadow);
  }
  return node;
}

bool castsShadow(const Layer& layer) {
  return layer.shadowOpacity > 0 && layer.shadowColor.alpha > 0 && !layer.masksToBounds;
}

CGRect contentRect(const CGRect& bounds, CGSize content, ContentsGravity gravity) {
  if (content.width <= 0 || content.height <= 0) return {bounds.origin, {0, 0}};
  const double x = bounds.size.width / content.width, y = bounds.size.height / content.height;
  CGSize size = content;
  double alongX = 0.5, alongY = 0.5;
  switch (gravity) {
    case ContentsGravity::resize:
      return bounds;
    case ContentsGravity::resizeAspect:
    case ContentsGravity::resizeAspectFill: {
      const double factor = gravity == ContentsGravity::resizeAspect ? std::min(x, y) : std::max(x, y);
      size = {content.width * factor, content.height * factor};
      break;
    }
    case ContentsGravity::center:
      break;
    case ContentsGravity::top:
    case ContentsGravity::topLeft:
    case ContentsGravity::topRight:
      alongY = 0;
      break;
    case ContentsGravity::bottom:
    case ContentsGravity::bottomLeft:
    case ContentsGravity::bottomRight:
      alongY = 1;
      break;
    case ContentsGravity::left:
    case ContentsGravity::right:
      break;
  }
  const auto isAny = [gravity](auto... options) { return ((gravity == options) || ...); };
  if (isAny(ContentsGravity::left, ContentsGravity::topLeft, ContentsGravity::bottomLeft)) alongX = 0;
  if (isAny(ContentsGravity::right, ContentsGravity::topRight, ContentsGravity::bottomRight)) alongX = 1;
  return {{bounds.origin.x + aligned(bounds.size.width, size.width, alongX),
           bounds.origin.y + aligned(bounds.size.height, size.height, alongY)},
          size};
}

}  // namespace sim
