// UITouch.
#include "simulator/uikit/gestures/touch.hpp"

#include <algorithm>
#include <cstdlib>

#include "bridge/define.hpp"
#include "simulator/uikit/base/array.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim::uikit {
namespace {

using TouchClass = bridge::Implementation<UITouch, TouchState>;

constexpr CGFloat maximumForce = 20.0 / 3;  // of every screen that feels force
constexpr int firstVersionWithForce = 9;

NSInteger phase(UITouch self) { return stateOf(self).phase; }
double timestamp(UITouch self) { return stateOf(self).timestamp; }
NSUInteger tapCount(UITouch self) { return stateOf(self).tapCount; }
UIView view(UITouch self) { return stateOf(self).view; }
UIWindow window(UITouch self) { return stateOf(self).window; }
NSArray gestureRecognizers(UITouch self) { return makeArray(stateOf(self).recognizers); }

CGPoint locationInView(UITouch self, UIView view) {
  return locationIn(view, stateOf(self).location, stateOf(self).window);
}

CGPoint previousLocationInView(UITouch self, UIView view) {
  return locationIn(view, stateOf(self).previous, stateOf(self).window);
}

CGFloat maximumPossibleForce(UITouch) { return configuration().forceTouch ? maximumForce : 0; }
CGFloat force(UITouch self) { return std::min<CGFloat>(stateOf(self).force, self.maximumPossibleForce()); }

bool hasForce() { return std::atoi(configuration().systemVersion.c_str()) >= firstVersionWithForce; }

void defineWith(auto... more) {
  using bridge::method;
  TouchClass::define<NSObject>(method<&UITouch::phase, phase>(), method<&UITouch::timestamp, timestamp>(),
                               method<&UITouch::tapCount, tapCount>(), method<&UITouch::view, view>(),
                               method<&UITouch::window, window>(),
                               method<&UITouch::gestureRecognizers, gestureRecognizers>(),
                               method<&UITouch::locationInView, locationInView>(),
                               method<&UITouch::previousLocationInView, previousLocationInView>(), more...);
}

}  // namespace

TouchState& stateOf(UITouch touch) { return TouchClass::state(touch); }

bool isDown(UITouch touch) {
  const NSInteger now = stateOf(touch).phase;
  return now != UITouchPhaseEnded && now != UITouchPhaseCancelled;
}

CGPoint locationIn(UIView view, CGPoint inWindow, UIWindow window) {
  return view ? view.convertPoint_fromView(inWindow, window) : inWindow;
}

void defineTouch() {
  if (hasForce())
    defineWith(bridge::method<&UITouch::force, force>(),
               bridge::method<&UITouch::maximumPossibleForce, maximumPossibleForce>());
  else
    defineWith();
}

}  // namespace sim::uikit
