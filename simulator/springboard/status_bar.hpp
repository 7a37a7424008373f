// The status bar: a window above everything else.
#pragma once

namespace sim::springboard {

// Puts it across the screen as it is turned now; call again when that changes.
void showStatusBar();

}  // namespace sim::springboard
