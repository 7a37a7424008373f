// Actions: messages whose selectors are known only when they are sent.
#pragma once

#include "platform/uikit/event.hpp"

namespace sim::uikit {

/**
 * Sends `action` to `target` with as many arguments as the selector has colons: none, the sender, or the
 * sender and the event.
 */
void sendAction(SEL action, bridge::Object target, bridge::Object sender, UIEvent event);

}  // namespace sim::uikit
