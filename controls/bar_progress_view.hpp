// RQBarProgressView: progress as a rounded bar in an outline.
#pragma once

#include "bridge/property.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/view.hpp"

namespace tilo {

struct RQBarProgressView : bridge::Face<"RQBarProgressView", UIView> {
  MESSAGE Property<"progress", float> progress;      // 0 to 1
  MESSAGE Property<"lineColor", UIColor> lineColor;  // of the outline
  MESSAGE Property<"progressColor", UIColor> progressColor;
  MESSAGE Property<"progressRemainingColor", UIColor> progressRemainingColor;
};

void defineBarProgressView();

}  // namespace tilo
