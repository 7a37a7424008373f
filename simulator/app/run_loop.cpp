// Stepping through whatever the process waits for.
#include "simulator/app/run_loop.hpp"

#include <algorithm>
#include <limits>

#include "bridge/runtime.hpp"
#include "platform/foundation/run_loop.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/dispatch.hpp"
#include "simulator/uikit/animation.hpp"

namespace sim {
namespace {

constexpr double never = std::numeric_limits<double>::infinity();
constexpr double smallestStep = 1e-6;  // seconds; the clock's own

double nextAnimation() { return uikit::nextAnimationEvent().value_or(never); }

// Fires the timers that are due, and tells when the next one is.
double runTimers() {
  bridge::Pool pool;
  clock::DueTimers due;
  NSDate next = NSRunLoop::currentRunLoop().limitDateForMode("NSDefaultRunLoopMode"_ns);
  return next ? next.timeIntervalSinceReferenceDate() - clock::startSinceReferenceDate : never;
}

// Does what is due now, and what that brings about for now; tells when there is more to do.
double runTurn() {
  double nextTimer = never;
  do {
    runMainQueue();
    uikit::runAnimationEvents(clock::now());
    nextTimer = runTimers();
  } while (!mainQueueIsEmpty() || nextAnimation() <= clock::now());
  return std::min(nextTimer, nextAnimation());
}

}  // namespace

void settle() { runTurn(); }

void letPass(double seconds) {
  double end = clock::now() + seconds;
  for (double next = runTurn(); next < end; next = runTurn())
    clock::advanceTo(std::max(next, clock::now() + smallestStep));
  clock::advanceTo(end);
  runTurn();
}

}  // namespace sim
