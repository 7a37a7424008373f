// An open folder: a panel with a scroll view of its own over the home screen.
#pragma once

namespace sim::springboard {

void openFolder();
// Nothing when no folder is open.
void closeFolder();
bool folderIsOpen();

// How long a folder takes to open or to close.
inline constexpr double folderDuration = 0.3;  // seconds

}  // namespace sim::springboard
