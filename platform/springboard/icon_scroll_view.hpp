// SBIconScrollView: the scroll view in which the pages of the home screen, or of a folder, stand side by
// side.
#pragma once

#include "platform/uikit/scroll_view.hpp"

struct SBIconScrollView : bridge::Face<"SBIconScrollView", UIScrollView> {
  MESSAGE Method<"layout:", void(bridge::Object)> layout;  // the library's own; a notification's handler
};
