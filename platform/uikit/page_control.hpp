// UIPageControl.
#pragma once

#include "platform/uikit/control.hpp"
#include "platform/uikit/image_view.hpp"

struct UIPageControl : bridge::Face<"UIPageControl", UIControl> {
  MESSAGE Property<"numberOfPages", NSInteger> numberOfPages;
  MESSAGE Property<"currentPage", NSInteger> currentPage;
};
