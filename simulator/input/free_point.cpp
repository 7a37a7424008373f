// A point of the home screen beside its icons.
#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "bridge/runtime.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/input/find.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::input {
namespace {

bool holds(const CGRect& rect, CGPoint point) {
  return point.x >= rect.origin.x && point.x <= rect.origin.x + rect.size.width && point.y >= rect.origin.y &&
         point.y <= rect.origin.y + rect.size.height;
}

// Icons and their labels, on the screen.
std::vector<CGRect> covered() {
  const bridge::Pool pool;
  uikit::layoutPass();
  std::vector<CGRect> rects;
  for (const UIWindow window : uikit::windows())
    uikit::forEachInTree(window, [&](UIView view) {
      if (!bridge::isKindOf<SBIconView>(view)) return;
      const Layer* layer = &uikit::layerOf(view);
      rects.push_back(sim::convertRect(view.bounds(), layer, nullptr));
      const CGRect label = springboard::labelOf(bridge::as<SBIconView>(view)).frame;
      rects.push_back(sim::convertRect(label, layer, nullptr));
    });
  return rects;
}

bool isFree(const std::vector<CGRect>& rects, CGPoint point) {
  for (const CGRect& rect : rects)
    if (holds(rect, point)) return false;
  return true;
}

double squaredDistance(CGPoint a, CGPoint b) { return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y); }

CGPoint nearestFree(auto allowed) {
  const std::vector<CGRect> rects = covered();
  const CGSize screen = uikit::screenSize();
  const CGPoint middle{screen.width / 2, screen.height / 2};
  double best = std::numeric_limits<double>::infinity();
  CGPoint found{};
  for (double y = 0; y < screen.height; ++y) {
    // What is farther to the side than this is no nearer.
    const double side = std::sqrt(std::max(best - (y - middle.y) * (y - middle.y), 0.0));
    const double end = std::min<double>(screen.width, middle.x + side + 1);
    for (double x = std::max(std::floor(middle.x - side), 0.0); x < end; ++x) {
      const CGPoint point{x, y};
      const double distance = squaredDistance(point, middle);
      if (distance >= best || !allowed(point) || !isFree(rects, point)) continue;
      best = distance;
      found = point;
    }
  }
  if (std::isinf(best)) throw UsageError("icons cover the whole screen");
  return found;
}

}  // namespace

CGPoint freePoint() {
  return nearestFree([](CGPoint) { return true; });
}

CGPoint freePoint(CGPoint other, double distance) {
  return nearestFree([=](CGPoint point) { return squaredDistance(point, other) >= distance * distance; });
}

}  // namespace sim::input
