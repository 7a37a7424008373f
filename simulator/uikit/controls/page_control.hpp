// UIPageControl.
#pragma once

#include <vector>

#include "platform/uikit/page_control.hpp"

namespace sim::uikit {

/**
 * How a page control shows a dot: the image view of a page is set to the picture of the current page, or of
 * another one. A private message, which subclasses override.
 */
struct PageIndicators : bridge::Face<"UIPageControl", UIPageControl> {
  MESSAGE Method<"_setIndicatorImage:toEnabled:index:", void(UIImageView, BOOL, NSInteger)>
      setIndicatorImage_toEnabled_index;
};

/** The dots, from left to right; subviews of the control. Borrowed. */
std::vector<UIImageView> indicatorsOf(UIPageControl control);

}  // namespace sim::uikit
