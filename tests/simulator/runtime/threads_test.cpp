// Work on other threads, and the clock that waits for it.
#include "simulator/runtime/threads.hpp"

#include <gtest/gtest.h>
#include <time.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "bridge/define.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/thread.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/foundation.hpp"
#include "simulator/runtime/tasks.hpp"
#include "simulator/time/run_loop.hpp"
#include "tests/bridge/counted.hpp"

namespace {

using namespace std::chrono_literals;

struct Sleeping : bridge::Face<"NSThread", NSThread> {
  static constexpr bridge::ClassMethod<"NSThread", "sleepForTimeInterval:", void(double)>
      sleepForTimeInterval{};
};

struct Performing : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"performSelectorOnMainThread:withObject:waitUntilDone:modes:",
                 void(SEL, bridge::Object, BOOL, bridge::Object)>
      inModes;
};

struct Worker : bridge::Face<"TestWorker", NSObject> {
  MESSAGE Method<"work:", void(bridge::Object)> work;
  MESSAGE Method<"report:", void(bridge::Object)> report;
};

struct Note {
  std::string what;
  bool onMain;
  double at;  // seconds
  bool operator==(const Note&) const = default;
};
[[maybe_unused]] std::ostream& operator<<(std::ostream& out, const Note& note) {
  return out << note.what << (note.onMain ? " on main" : " elsewhere") << " at " << note.at;
}

using Notes = std::vector<Note>;

Notes notes;
std::mutex notesLock;
void (*workOf)(Worker) = nullptr;

void note(const std::string& what) {
  const bool onMain = NSThread::isMainThread();
  const std::lock_guard guard(notesLock);
  notes.push_back({what, onMain, sim::clock::now()});
}

void work(Worker self, bridge::Object) { workOf(self); }
void report(Worker, bridge::Object) { note("report"); }

SEL reportSelector() { return bridge::selector<"report:">(); }

void report(Worker worker, BOOL waits) {
  bridge::as<NSThreadPerformAdditions>(worker).performSelectorOnMainThread_withObject_waitUntilDone(
      reportSelector(), {}, waits);
}

class Threads : public testing::Test {
 protected:
  Threads() {
    sim::prepareFoundation();
    sim::watchThreads();
    bridge::Implementation<Worker>::define<NSObject>(
        bridge::method<&Worker::work, work>(),
        bridge::method<&Worker::report, static_cast<void (*)(Worker, bridge::Object)>(report)>());
    worker = bridge::make<Worker, &NSObject::init>();
  }

  void detach(void (*function)(Worker)) {
    workOf = function;
    NSThread::detachNewThreadSelector_toTarget_withObject(bridge::selector<"work:">(), worker.get(), {});
  }

  bridge::Pool pool;
  bridge::Strong<Worker> worker;
};

TEST_F(Threads, DoTheirWorkAwayFromTheMainThread) {
  detach([](Worker) { note("work"); });
  sim::settle();
  EXPECT_EQ(notes, (Notes{{"work", false, 0}}));
}

TEST_F(Threads, KeepTheClockWaitingHoweverLongTheyTake) {
  detach([](Worker) {
    const auto end = std::chrono::steady_clock::now() + 50ms;
    while (std::chrono::steady_clock::now() < end) {
    }
    note("work");
  });
  sim::letPass(1);
  EXPECT_EQ(notes, (Notes{{"work", false, 0}}));
  EXPECT_EQ(sim::clock::now(), 1);
}

TEST_F(Threads, SleepInTheTimeOfTheClock) {
  detach([](Worker) {
    Sleeping::sleepForTimeInterval(2);
    note("rested");
  });
  const auto start = std::chrono::steady_clock::now();
  sim::letPass(1.999);
  EXPECT_EQ(notes, Notes{});
  sim::letPass(0.002);
  ASSERT_EQ(notes.size(), 1u);
  EXPECT_NEAR(notes[0].at, 2, 2e-6);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
}

TEST_F(Threads, SleepInEveryWayThatTheSystemOffers) {
  detach([](Worker) {
    usleep(1'500'000);
    note("usleep");
    sleep(2);
    note("sleep");
    const timespec quarter{0, 250'000'000};
    nanosleep(&quarter, nullptr);
    note("nanosleep");
    std::this_thread::sleep_for(250ms);
    note("sleep_for");
  });
  sim::letPass(10);
  EXPECT_EQ(notes, (Notes{{"usleep", false, 1.5},
                          {"sleep", false, 3.5},
                          {"nanosleep", false, 3.75},
                          {"sleep_for", false, 4}}));
}

TEST_F(Threads, ThatAreNoTasksSleepInTheTimeOfTheHost) {
  const auto start = std::chrono::steady_clock::now();
  usleep(20'000);
  EXPECT_GE(std::chrono::steady_clock::now() - start, 20ms);
  EXPECT_EQ(sim::clock::now(), 0);
}

TEST_F(Threads, HandOverToTheMainThreadInOrderWithItsBlocks) {
  detach([](Worker self) {
    dispatch::onMainQueue([] { note("first"); });
    report(self, NO);
    dispatch::onMainQueue([] { note("last"); });
    note("work");
  });
  sim::settle();
  EXPECT_EQ(notes, (Notes{{"work", false, 0}, {"first", true, 0}, {"report", true, 0}, {"last", true, 0}}));
}

TEST_F(Threads, MayWaitUntilTheMainThreadHasDoneIt) {
  detach([](Worker self) {
    report(self, YES);
    note("work");
  });
  sim::settle();
  EXPECT_EQ(notes, (Notes{{"report", true, 0}, {"work", false, 0}}));
}

TEST_F(Threads, HandOverInChosenModesToo) {
  detach([](Worker self) { bridge::as<Performing>(self).inModes(reportSelector(), {}, YES, {}); });
  sim::settle();
  EXPECT_EQ(notes, (Notes{{"report", true, 0}}));
}

TEST_F(Threads, MayWaitForTheMainThreadInAWayThatNobodySees) {
  static std::atomic<bool> done = false;
  detach([](Worker) {
    dispatch::onMainQueue([] { done = true; });
    while (!done) std::this_thread::yield();
    note("work");
  });
  sim::settle();
  EXPECT_EQ(notes, (Notes{{"work", false, 0}}));
}

TEST_F(Threads, HaveGivenUpTheirTargetWhenTheClockGoesOn) {
  const NSUInteger before = worker->retainCount();
  for (int i = 0; i < 20; ++i) {
    detach([](Worker) {});
    sim::settle();
    ASSERT_EQ(worker->retainCount(), before);
  }
}

TEST_F(Threads, OnTheMainThreadItselfPerformAtOnceWhenTheyWait) {
  report(worker, YES);
  EXPECT_EQ(notes, (Notes{{"report", true, 0}}));
  report(worker, NO);
  EXPECT_EQ(notes.size(), 1u);
  sim::settle();
  EXPECT_EQ(notes.size(), 2u);
}

TEST_F(Threads, SleepSideBySide) {
  for (const double seconds : {0.75, 0.25, 0.5})
    dispatch::onQueue(dispatch::defaultQueue(), [seconds] {
      Sleeping::sleepForTimeInterval(seconds);
      note("rested");
    });
  sim::letPass(2);
  ASSERT_EQ(notes.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(notes[i].at, 0.25 * static_cast<double>(i + 1), 2e-6);
}

TEST_F(Threads, OfTheDefaultQueueWorkSideBySide) {
  // Each waits for the other.
  static std::atomic<int> arrived = 0;
  for (int i = 0; i < 2; ++i)
    dispatch::onQueue(dispatch::defaultQueue(), [] {
      ++arrived;
      while (arrived < 2) std::this_thread::yield();
      note("met");
    });
  sim::settle();
  EXPECT_EQ(notes, (Notes{{"met", false, 0}, {"met", false, 0}}));
}

TEST_F(Threads, OfASerialQueueDoOneThingAfterTheOther) {
  dispatch_queue_s* queue = dispatch_queue_create("test", nullptr);
  for (int i = 0; i < 5; ++i) dispatch::onQueue(queue, [i] { note(std::to_string(i)); });
  dispatch_release(queue);  // it is kept until its work is done
  sim::settle();
  EXPECT_EQ(notes,
            (Notes{{"0", false, 0}, {"1", false, 0}, {"2", false, 0}, {"3", false, 0}, {"4", false, 0}}));
}

TEST_F(Threads, OfAQueueReleaseTheirWorkBeforeTheClockGoesOn) {
  for (int i = 0; i < 20; ++i) {
    dispatch::onQueue(dispatch::defaultQueue(), [kept = bridge::adopt<test::Counted>(test::newCounted())] {});
    sim::settle();
    ASSERT_EQ(test::counts.deallocs, 1);
  }
}

TEST_F(Threads, OfAQueueHaveAPool) {
  dispatch::onQueue(dispatch::defaultQueue(), [] { bridge::autorelease(test::newCounted()); });
  sim::settle();
  EXPECT_EQ(test::counts.deallocs, 1);
}

TEST_F(Threads, ThatAreBusyAreToldOf) {
  static std::atomic<bool> goOn = false;
  dispatch::onQueue(dispatch::defaultQueue(), [] {
    while (!goOn) std::this_thread::yield();
  });
  EXPECT_TRUE(sim::tasks::areBusy());
  EXPECT_FALSE(sim::tasks::waitUntilIdle(0.01));
  goOn = true;
  EXPECT_TRUE(sim::tasks::waitUntilIdle(10));
}

}  // namespace
