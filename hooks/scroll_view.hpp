// SpringBoard's icon scroll view: where a change of settings reaches the running home screen.
#pragma once

#include "platform/springboard/icon_scroll_view.hpp"

namespace tilo::hooks {

// Handles a notification: every page is laid out again.
void layout(SBIconScrollView self, bridge::Object notification);

}  // namespace tilo::hooks
