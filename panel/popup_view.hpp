// RQPopupView: the Quick Settings panel. As yet it is a bare card that comes and goes.
#pragma once

#include "platform/uikit/view.hpp"

namespace tilo {

struct RQPopupView : bridge::Face<"RQPopupView", UIView> {
  // Brings the panel on screen, over the key window; the view is not used.
  MESSAGE Method<"show:", void(UIView)> show;
  // Closes the panel as its cross does.
  MESSAGE Method<"didHitCancel", void()> didHitCancel;
};

void definePopupView();

}  // namespace tilo
