// What stands on a toolbar for an item with a title.
#pragma once

#include "bridge/strong.hpp"
#include "platform/uikit/button.hpp"
#include "platform/uikit/toolbar.hpp"

namespace sim::uikit {

bridge::Strong<UIButton> makeToolbarButton(UIBarButtonItem item);

}  // namespace sim::uikit
