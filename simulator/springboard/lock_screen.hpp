// The lock screen: a window over everything but the status bar.
#pragma once

namespace sim::springboard {

void lock();
void unlock();
bool isLocked();

void defineLockScreen();

}  // namespace sim::springboard
