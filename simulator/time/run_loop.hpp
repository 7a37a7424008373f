// The main run loop, and who lets time pass: the stepped clock, as fast as the machine allows, or another
// keeper of time.
#pragma once

#include <functional>

namespace sim {

// Everything that is due now: the main queue's work, timers, ends of animations; and what these bring about.
// Work on other threads is waited for, until each task has ended, sleeps or waits for the main thread. Throws
// std::runtime_error when one does none of this for half a minute.
void settle();

// The same; answers when more will be due, in seconds of the clock: infinite for never.
double turn();

// Lets `seconds` pass. What falls due on the way happens at its own moment, in order.
void letPass(double seconds);

// Steps the clock to a moment, whoever keeps the time.
void stepTo(double moment);

// From now on `keeper` lets time pass, up to the moment that it is called with; without one the clock is
// stepped.
using TimeKeeper = std::function<void(double end)>;
void keepTimeBy(TimeKeeper keeper);

}  // namespace sim
