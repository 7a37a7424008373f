// Stepping through whatever the process waits for.
#include "simulator/time/run_loop.hpp"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "bridge/runtime.hpp"
#include "platform/foundation/run_loop.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/dispatch.hpp"
#include "simulator/runtime/tasks.hpp"
#include "simulator/uikit/animation/animation.hpp"

namespace sim {
namespace {

constexpr double never = std::numeric_limits<double>::infinity();
constexpr double smallestStep = 1e-6;  // seconds; the clock's own

// Real seconds. What keeps a task busy may be that it waits for the main queue in a way that nobody sees.
constexpr double patience = 1;
constexpr int mostRounds = 30;

double nextAnimation() { return uikit::nextAnimationEvent().value_or(never); }

// Fires the timers that are due, and tells when the next one is.
double runTimers() {
  bridge::Pool pool;
  clock::DueTimers due;
  NSDate next = NSRunLoop::currentRunLoop().limitDateForMode("NSDefaultRunLoopMode"_ns);
  return next ? next.timeIntervalSinceReferenceDate() - clock::startSinceReferenceDate : never;
}

double nextWaking() { return tasks::nextWaking().value_or(never); }

// Nothing is done while a task is busy, so that what it hands over comes in the same order every time.
void awaitTasks() {
  for (int round = 0; !tasks::waitUntilIdle(patience); ++round) {
    if (!mainQueueIsEmpty()) return;
    if (round == mostRounds)
      throw std::runtime_error("work on another thread neither ends nor sleeps nor asks for anything");
  }
}

TimeKeeper& keeper() {
  static TimeKeeper chosen;
  return chosen;
}

// Does what is due now, and what that brings about for now; tells when there is more to do.
double runTurn() {
  double nextTimer = never;
  do {
    tasks::wake(clock::now());
    awaitTasks();
    runMainQueue();
    uikit::runAnimationEvents(clock::now());
    nextTimer = runTimers();
  } while (!mainQueueIsEmpty() || tasks::areBusy() ||
           std::min(nextAnimation(), nextWaking()) <= clock::now());
  return std::min({nextTimer, nextAnimation(), nextWaking()});
}

}  // namespace

void settle() { runTurn(); }

double turn() { return runTurn(); }

void stepTo(double moment) {
  for (double next = runTurn(); next < moment; next = runTurn())
    clock::advanceTo(std::max(next, clock::now() + smallestStep));
  clock::advanceTo(moment);
  runTurn();
}

void letPass(double seconds) {
  const double end = clock::now() + seconds;
  if (keeper())
    keeper()(end);
  else
    stepTo(end);
}

void keepTimeBy(TimeKeeper chosen) { keeper() = std::move(chosen); }

}  // namespace sim
