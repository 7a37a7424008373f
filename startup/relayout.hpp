// Live relayout: makes SpringBoard lay its pages out again, so that they ask for the current numbers.
#pragma once

namespace tilo {

// Queues a pass on the main queue and returns at once. It lays out the pages 0 to numOfPages - 1, or the one
// on screen, with an animation of 0.6 seconds. Passes are not coalesced.
void layoutIcons(bool onlyCurrentPage);

}  // namespace tilo
