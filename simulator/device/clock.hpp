// The one clock. It stands still until it is moved, and Foundation's dates and timers follow it.
#pragma once

#include <chrono>

namespace sim::clock {

/** Seconds since the start; whole microseconds. */
double now();

/** The device's day; its time zone is UTC. */
std::chrono::sys_days today();

/**
 * Moves the time to `seconds` since the start; a moment that has passed changes nothing. The clock stops at
 * the first whole microsecond that is not before that moment for Foundation, which keeps dates as doubles.
 * GNUstep fires a timer only when its date has passed: one microsecond later. Throws std::invalid_argument
 * when the moment is not a number or more than a thousand million seconds away.
 */
void advanceTo(double seconds);

/**
 * Foundation fires a timer when its date has passed, not when it has come. While one of these exists, dates
 * are one step of the clock ahead, so that a timer that is due now is fired now.
 */
class DueTimers {
 public:
  DueTimers();
  ~DueTimers();
  DueTimers(const DueTimers&) = delete;
  DueTimers& operator=(const DueTimers&) = delete;
};

/** The start as a date: seconds from 1970 to 5 June 2018, 09:41:00 UTC. */
inline constexpr long startSince1970 = 1'528'191'660;
/** The same in Foundation's reckoning, from 2001. */
inline constexpr double startSinceReferenceDate = startSince1970 - 978'307'200.0;

}  // namespace sim::clock
