// UITouch: one finger from the moment it comes down until everybody has heard that it is gone.
#pragma once

#include <vector>

#include "bridge/strong.hpp"
#include "platform/uikit/gesture_recognizer.hpp"

namespace sim::uikit {

/** How far a touch has got with its view, which hears of it later than the recognisers, or never. */
enum class TouchDelivery { waiting, begun, over };

struct TouchState {
  NSInteger phase = UITouchPhaseBegan;
  double timestamp = 0;  // seconds
  NSUInteger tapCount = 1;
  CGPoint location{}, previous{};  // points of the window
  CGPoint start{};                 // where it came down
  double force = 0;                // 1 is an average touch
  bridge::Strong<UIWindow> window;
  bridge::Strong<UIView> view;
  std::vector<bridge::Strong<UIGestureRecognizer>> recognizers;  // the deepest view's first

  int finger = 0;
  bool changed = false;  // by the event under way, and its view has not heard of it
  TouchDelivery delivery = TouchDelivery::waiting;
  bool cancelled = false;  // for its view: a recogniser has taken it over
};

TouchState& stateOf(UITouch touch);
/** Whether the finger is still on the glass. */
bool isDown(UITouch touch);
/** Points of the view, or of the touch's window without one. */
CGPoint locationIn(UIView view, CGPoint inWindow, UIWindow window);

}  // namespace sim::uikit
