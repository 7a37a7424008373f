// UIControl.
#pragma once

#include "platform/uikit/control.hpp"

namespace sim::uikit {

/** Sends the actions for these events, as part of that event where there is one. */
void sendActions(UIControl control, NSUInteger events, UIEvent event);
/** The events that actions are registered for. */
NSUInteger eventsOf(UIControl control);

}  // namespace sim::uikit
