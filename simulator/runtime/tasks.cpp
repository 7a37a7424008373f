// The count of busy tasks, and the list of those that sleep.
#include "simulator/runtime/tasks.hpp"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>

namespace sim::tasks {
namespace {

struct Sleeper {
  double until;
  bool awake = false;
};

struct State {
  std::mutex lock;
  std::condition_variable changed;
  int busy = 0;
  std::list<Sleeper> sleepers;
};

// Never destroyed: a task may still sleep when the process ends.
State& state() {
  static auto& value = *new State();
  return value;
}

constinit thread_local bool onTask = false;

using Guard = std::unique_lock<std::mutex>;

// `holds` becomes true by the main thread's doing, which counts the task as busy again.
void waitIdly(Guard& guard, const auto& holds) {
  --state().busy;
  state().changed.notify_all();
  state().changed.wait(guard, holds);
}

}  // namespace

void begin() {
  const Guard guard(state().lock);
  ++state().busy;
}

void enter() { onTask = true; }

void end() {
  const Guard guard(state().lock);
  onTask = false;
  --state().busy;
  state().changed.notify_all();
}

bool isTask() { return onTask; }

void sleepUntil(double moment) {
  Guard guard(state().lock);
  const auto self = state().sleepers.insert(state().sleepers.end(), {moment});
  waitIdly(guard, [self] { return self->awake; });
  state().sleepers.erase(self);
}

std::optional<double> nextWaking() {
  const Guard guard(state().lock);
  std::optional<double> next;
  for (const Sleeper& one : state().sleepers)
    if (!one.awake && (!next || one.until < *next)) next = one.until;
  return next;
}

void wake(double now) {
  const Guard guard(state().lock);
  for (Sleeper& one : state().sleepers) {
    if (one.awake || one.until > now) continue;
    one.awake = true;
    ++state().busy;
  }
  state().changed.notify_all();
}

void Errand::waitUntilDone() {
  Guard guard(state().lock);
  if (isDone) {  // before it was waited for, so nobody took the task for idle
    --state().busy;
    return;
  }
  waitIdly(guard, [this] { return isDone; });
}

void Errand::done() {
  const Guard guard(state().lock);
  isDone = true;
  ++state().busy;
  state().changed.notify_all();
}

bool areBusy() {
  const Guard guard(state().lock);
  return state().busy > 0;
}

bool waitUntilIdle(double seconds) {
  Guard guard(state().lock);
  return state().changed.wait_for(guard, std::chrono::duration<double>(seconds),
                                  [] { return state().busy == 0; });
}

}  // namespace sim::tasks
