// RQRoundProgressView: progress as a pie, or as a ring.
#pragma once

#include "platform/uikit/color.hpp"
#include "platform/uikit/view.hpp"

namespace tilo {

struct RQRoundProgressView : bridge::Face<"RQRoundProgressView", UIView> {
  MESSAGE Method<"progress", float()> progress;  // 0 to 1
  MESSAGE Method<"setProgress:", void(float)> setProgress;
  MESSAGE Method<"progressTintColor", UIColor()> progressTintColor;
  MESSAGE Method<"setProgressTintColor:", void(UIColor)> setProgressTintColor;
  MESSAGE Method<"backgroundTintColor", UIColor()> backgroundTintColor;
  MESSAGE Method<"setBackgroundTintColor:", void(UIColor)> setBackgroundTintColor;
  MESSAGE Method<"annular", BOOL()> annular;  // a ring
  MESSAGE Method<"setAnnular:", void(BOOL)> setAnnular;
};

void defineRoundProgressView();

}  // namespace tilo
