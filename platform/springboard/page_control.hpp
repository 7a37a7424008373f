// The page dots of the home screen.
#pragma once

#include "platform/uikit/page_control.hpp"

struct SBIconListPageControl : bridge::Face<"SBIconListPageControl", UIPageControl> {
  // Which of the two shows a dot depends on the system version.
  MESSAGE Method<"_setIndicatorImage:toEnabled:index:", void(UIImageView, BOOL, NSInteger)>
      _setIndicatorImage_toEnabled_index;
  MESSAGE OptionalMethod<"_setIndicatorImage:toEnabled:", void(UIImageView, BOOL)>
      _setIndicatorImage_toEnabled;
};
