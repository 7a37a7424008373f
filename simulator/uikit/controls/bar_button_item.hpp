// UIBarButtonItem.
#pragma once

#include "platform/uikit/toolbar.hpp"

namespace sim::uikit {

/** Whether the item is the room between others. */
bool isFlexibleSpace(UIBarButtonItem item);

}  // namespace sim::uikit
