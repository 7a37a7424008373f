// The status bar: a window above everything else.
#pragma once

namespace sim::springboard {

void showStatusBar();

}  // namespace sim::springboard
