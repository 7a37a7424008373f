// RQRoundProgressView: progress as a pie, or as a ring.
#pragma once

#include "bridge/property.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/view.hpp"

namespace tilo {

struct RQRoundProgressView : bridge::Face<"RQRoundProgressView", UIView> {
  MESSAGE Property<"progress", float> progress;  // 0 to 1
  MESSAGE Property<"progressTintColor", UIColor> progressTintColor;
  MESSAGE Property<"backgroundTintColor", UIColor> backgroundTintColor;
  MESSAGE Property<"annular", BOOL> annular;  // a ring
};

void defineRoundProgressView();

}  // namespace tilo
