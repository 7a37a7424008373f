// RQBarProgressView: progress as a rounded bar in an outline.
#pragma once

#include "platform/uikit/color.hpp"
#include "platform/uikit/view.hpp"

namespace tilo {

struct RQBarProgressView : bridge::Face<"RQBarProgressView", UIView> {
  MESSAGE Method<"progress", float()> progress;  // 0 to 1
  MESSAGE Method<"setProgress:", void(float)> setProgress;
  MESSAGE Method<"lineColor", UIColor()> lineColor;  // of the outline
  MESSAGE Method<"setLineColor:", void(UIColor)> setLineColor;
  MESSAGE Method<"progressColor", UIColor()> progressColor;
  MESSAGE Method<"setProgressColor:", void(UIColor)> setProgressColor;
  MESSAGE Method<"progressRemainingColor", UIColor()> progressRemainingColor;
  MESSAGE Method<"setProgressRemainingColor:", void(UIColor)> setProgressRemainingColor;
};

void defineBarProgressView();

}  // namespace tilo
