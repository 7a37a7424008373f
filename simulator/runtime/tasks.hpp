// Work on other threads, and how the stepped clock waits for it.
//
// Time moves on only while no task is busy. A task is busy from the moment it is handed over until it has
// ended, except while it sleeps, which is until the clock has come to its moment, and while it waits for the
// main thread.
#pragma once

#include <optional>

namespace sim::tasks {

/** Counts one more task, on whatever thread hands it over. */
void begin();
/** The calling thread does a task: its sleeps follow the clock. */
void enter();
/** The task has ended; the thread's last word on it. */
void end();
/** Whether the calling thread does a task. */
bool isTask();

/** Called by a task: sleeps until the clock has come to `moment` (seconds) and been told of by wake(). */
void sleepUntil(double moment);
/** When the next sleeper is to wake, in seconds of the clock; none when nobody sleeps. */
std::optional<double> nextWaking();
/** Makes those busy again whose moment has come. */
void wake(double now);

/** Something that the main thread does for a task, which is not busy meanwhile. */
class Errand {
 public:
  /** Called by the task once it has handed the errand over. */
  void waitUntilDone();
  /** Called by the main thread. */
  void done();

 private:
  bool isDone = false;
};

bool areBusy();
/** Waits until no task is busy, but at most so many real seconds; answers whether none is. */
bool waitUntilIdle(double seconds);

}  // namespace sim::tasks
