// The page dots of the home screen.
#pragma once

#include "platform/uikit/page_control.hpp"

struct SBIconListPageControl : bridge::Face<"SBIconListPageControl", UIPageControl> {};
