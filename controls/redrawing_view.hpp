// What the progress views share: they let through what is behind them, and are drawn anew when one of their
// own properties changes, on whatever thread.
#pragma once

#include "controls/atomic_property.hpp"
#include "controls/own_observation.hpp"
#include "platform/foundation/thread.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/view.hpp"

namespace tilo {

inline void beTransparent(UIView view) {
  view.backgroundColor.set(UIColor::clearColor());
  view.opaque.set(NO);
}

// Answers the view's observation of itself.
template <class T>
void redraw(T self, NSString, bridge::Object, NSDictionary, void*) {
  if (NSThread::isMainThread()) return self.setNeedsDisplay();
  bridge::as<NSThreadPerformAdditions>(self).performSelectorOnMainThread_withObject_waitUntilDone(
      bridge::selector<"setNeedsDisplay">(), {}, NO);
}

}  // namespace tilo
