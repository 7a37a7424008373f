// Live relayout: makes SpringBoard lay its pages out again, so that they ask for the current numbers.
#pragma once

#include "bridge/strong.hpp"
#include "platform/springboard/icon_controller.hpp"

namespace tilo {

// SpringBoard's icon controller, once a page has asked for its horizontal padding; until then nil. Never
// destroyed.
extern bridge::Strong<SBIconController> cont;

// Queues a pass on the main queue and returns at once. It lays out the pages 0 to numOfPages - 1, or the one
// on screen, with an animation of 0.6 seconds. Passes are not coalesced.
void layoutIcons(bool onlyCurrentPage);

}  // namespace tilo
