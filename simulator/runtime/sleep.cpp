// Sleeping. A task sleeps in the time of the stepped clock; every other thread in that of the host. The
// definitions stand in the executable, so that Foundation finds these before the C library's own.
#include <dlfcn.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>

#include "simulator/device/clock.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/runtime/tasks.hpp"

namespace {

constexpr long nanosecondsPerSecond = 1'000'000'000;

void sleepFor(double seconds) { sim::tasks::sleepUntil(sim::clock::now() + seconds); }

// The C library's, which this one hides.
int hostSleep(const timespec* length, timespec* rest) {
  using Function = int (*)(const timespec*, timespec*);
  static const auto function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "nanosleep"));
  return function(length, rest);
}

}  // namespace

SIMULATOR_EXPORT int nanosleep(const timespec* length, timespec* rest) {
  if (!sim::tasks::isTask()) return hostSleep(length, rest);
  if (length->tv_sec < 0 || length->tv_nsec < 0 || length->tv_nsec >= nanosecondsPerSecond) {
    errno = EINVAL;
    return -1;
  }
  sleepFor(static_cast<double>(length->tv_sec) + static_cast<double>(length->tv_nsec) / nanosecondsPerSecond);
  if (rest) *rest = {};
  return 0;
}

SIMULATOR_EXPORT int usleep(unsigned microseconds) {
  const timespec length{static_cast<time_t>(microseconds / 1'000'000), microseconds % 1'000'000 * 1000L};
  return nanosleep(&length, nullptr);
}

SIMULATOR_EXPORT unsigned sleep(unsigned seconds) {
  timespec rest{static_cast<time_t>(seconds), 0};
  nanosleep(&rest, &rest);
  return static_cast<unsigned>(rest.tv_sec);
}
