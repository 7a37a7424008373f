// The main run loop under the stepped clock.
#pragma once

namespace sim {

// Everything that is due now: the main queue's work, timers, ends of animations; and what these bring about.
// Work on other threads is waited for, until each task has ended, sleeps or waits for the main thread. Throws
// std::runtime_error when one does none of this for half a minute.
void settle();

// Lets `seconds` pass. What falls due on the way happens at its own moment, in order.
void letPass(double seconds);

}  // namespace sim
