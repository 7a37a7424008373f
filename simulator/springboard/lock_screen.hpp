// The lock screen: a window over everything but the status bar.
#pragma once

namespace sim::springboard {

void lock();
void unlock();

void defineLockScreen();

}  // namespace sim::springboard
