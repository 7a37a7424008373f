// Stepped time, and the gettimeofday that hands it to everything in the process.
#include "simulator/device/clock.hpp"

#include <sys/time.h>

#include <atomic>
#include <cmath>
#include <stdexcept>

namespace sim::clock {
namespace {

constinit std::atomic<long long> microseconds = 0;  // since the start
constinit std::atomic<long long> lead = 0;          // microseconds by which Foundation is ahead

constexpr long long perSecond = 1'000'000;

double secondsOf(long long count) { return static_cast<double>(count) / perSecond; }

// Reckoned as Foundation does from gettimeofday's answer, with its rounding.
double foundationDate(long long count) {
  return startSinceReferenceDate + static_cast<double>(count / perSecond) + secondsOf(count % perSecond);
}

}  // namespace

double now() { return secondsOf(microseconds); }

std::chrono::sys_days today() {
  const std::chrono::microseconds since(startSince1970 * perSecond + microseconds);
  return std::chrono::floor<std::chrono::days>(std::chrono::sys_time<std::chrono::microseconds>(since));
}

void advanceTo(double seconds) {
  if (!(std::abs(seconds) <= 1e9)) throw std::invalid_argument("a moment that the clock cannot reach");
  if (seconds <= now()) return;
  long long target = std::llround(seconds * perSecond);
  while (foundationDate(target) < startSinceReferenceDate + seconds) ++target;
  microseconds = target;
}

DueTimers::DueTimers() { lead = 1; }
DueTimers::~DueTimers() { lead = 0; }

}  // namespace sim::clock

// GNUstep reads the time of day for every date and timer. The definition in the executable comes before the C
// library's.
extern "C" [[gnu::visibility("default")]] int gettimeofday(timeval* time, void* zone) noexcept {
  using sim::clock::perSecond;
  const long long count = sim::clock::microseconds + sim::clock::lead;
  time->tv_sec = sim::clock::startSince1970 + count / perSecond;
  time->tv_usec = count % perSecond;
  if (zone) *static_cast<struct timezone*>(zone) = {};
  return 0;
}
