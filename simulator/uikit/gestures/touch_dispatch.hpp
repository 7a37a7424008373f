// From the glass to the windows: fingers become touches, and touches find their views.
#pragma once

#include <vector>

#include "bridge/strong.hpp"
#include "platform/uikit/window.hpp"

namespace sim::uikit {

/** What one finger does. */
struct FingerChange {
  int finger;        // whatever tells fingers apart
  NSInteger phase;   // UITouchPhase: began, moved, ended or cancelled
  CGPoint location;  // points of the screen, as turned
  double force = 1;  // 1 is an average touch
};

/**
 * Sends one event through UIApplication with everything that fingers did at this moment, after a layout
 * pass. A finger that comes down where no view takes touches is nobody's until it lifts.
 */
void sendFingers(const std::vector<FingerChange>& changes);

/** Takes every finger off the glass; whoever has touches hears that they were cancelled. */
void cancelFingers();

/** What UIApplication and UIWindow do with an event: the windows that it concerns, and one window's part. */
std::vector<bridge::Strong<UIWindow>> touchedWindows();
void deliverTouches(UIWindow window);

/** The view that takes a touch at a point of the screen (points, as turned); none where nobody does. */
UIView viewAt(CGPoint onScreen);

}  // namespace sim::uikit
