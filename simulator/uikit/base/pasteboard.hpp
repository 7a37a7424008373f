// UIPasteboard.
#pragma once

#include "platform/uikit/pasteboard.hpp"

namespace sim::uikit {

void definePasteboard();

}  // namespace sim::uikit
