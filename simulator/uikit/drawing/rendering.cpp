// What is on the screen.
#include "simulator/uikit/drawing/rendering.hpp"

#include <cmath>
#include <stdexcept>
#include <vector>

#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::uikit {

void layoutPass() {
  const bridge::Pool pool;
  // A view that is laid out may ask for its superview's layout once more; no sound one goes on for ever.
  constexpr int mostRounds = 100;
  for (int round = 0; round < mostRounds; ++round) {
    bool any = false;
    for (const UIWindow window : windows()) any = layoutTree(window) || any;
    if (!any) return;
  }
  throw std::runtime_error("layout does not come to an end");
}

Surface renderScreen(double now) {
  static auto& screen = *new PaintedScreen;
  return renderScreen(now, screen);
}

Surface renderScreen(double now, PaintedScreen& screen) {
  layoutPass();
  const bridge::Pool pool;
  const CGSize pixels = screenPixels();
  std::vector<Layer*> roots;
  for (const UIWindow window : windows()) roots.push_back(&layerOf(window));
  return screen.draw(roots, now, static_cast<int>(std::lround(pixels.width)),
                     static_cast<int>(std::lround(pixels.height)), nativeScale());
}

}  // namespace sim::uikit
