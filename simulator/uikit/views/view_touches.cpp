// Which view a touch is for.
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/views/view_methods.hpp"

namespace sim::uikit::view {
namespace {

// Below this, a view counts as invisible to touches.
constexpr double leastAlpha = 0.01;

bool takesTouches(UIView view) {
  return !view.hidden() && view.userInteractionEnabled() && view.alpha() >= leastAlpha &&
         !ignoresTouches(layerObjectOf(view));
}

}  // namespace

UIView hitTest(UIView self, CGPoint point, UIEvent event) {
  if (!takesTouches(self) || !self.pointInside_withEvent(point, event)) return {};
  const auto subviews = stateOf(self).subviews;
  for (auto subview = subviews.rbegin(); subview != subviews.rend(); ++subview) {
    const UIView one = *subview;
    if (const UIView hit = one.hitTest_withEvent(one.convertPoint_fromView(point, self), event)) return hit;
  }
  return self;
}

BOOL pointInside(UIView self, CGPoint point, UIEvent) {
  const CGRect bounds = self.bounds();
  return point.x >= bounds.origin.x && point.x < bounds.origin.x + bounds.size.width &&
         point.y >= bounds.origin.y && point.y < bounds.origin.y + bounds.size.height;
}

}  // namespace sim::uikit::view
