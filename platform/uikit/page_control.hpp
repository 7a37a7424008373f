// UIPageControl.
#pragma once

#include "platform/uikit/control.hpp"
#include "platform/uikit/image_view.hpp"

struct UIPageControl : bridge::Face<"UIPageControl", UIControl> {
  MESSAGE Method<"numberOfPages", NSInteger()> numberOfPages;
  MESSAGE Method<"setNumberOfPages:", void(NSInteger)> setNumberOfPages;
  MESSAGE Method<"currentPage", NSInteger()> currentPage;
  MESSAGE Method<"setCurrentPage:", void(NSInteger)> setCurrentPage;
};
