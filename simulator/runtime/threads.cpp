// NSThread: each is a task from `start` until its thread is gone. What is to be performed on the main thread
// goes through the main queue, so that it keeps its place among the blocks.
#include "simulator/runtime/threads.hpp"

#include <pthread.h>

#include "bridge/replace.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/array.hpp"
#include "platform/foundation/thread.hpp"
#include "simulator/runtime/tasks.hpp"

namespace sim {
namespace {

struct Threads : bridge::Face<"NSThread", NSThread> {
  MESSAGE Method<"start", void()> start;
  MESSAGE Method<"main", void()> main;
};

// The end of a thread's task is its thread's end: in the second round of the thread's own destructors, when
// Foundation has released what the thread held.
pthread_key_t endKey() {
  static const pthread_key_t key = [] {
    pthread_key_t made;
    pthread_key_create(&made, [](void* round) {
      static constinit char second;
      if (round == &second) return tasks::end();
      pthread_setspecific(endKey(), &second);
    });
    return made;
  }();
  return key;
}

void main(Threads self) {
  static constinit char first;
  tasks::enter();
  pthread_setspecific(endKey(), &first);
  bridge::original<main>(self);
}

void start(Threads self) {
  struct Beginning {
    bool begun = false;
    Beginning() { tasks::begin(); }
    ~Beginning() {
      if (!begun) tasks::end();
    }
  } beginning;
  bridge::original<start>(self);
  beginning.begun = true;
}

void performNow(NSObject self, SEL action, bridge::Object argument) {
  bridge::as<NSPerforming>(self).performSelector_withObject(action, argument);
}

void performOnMainThread(NSObject self, SEL action, bridge::Object argument, BOOL waits) {
  if (waits && NSThread::isMainThread()) return performNow(self, action, argument);
  tasks::Errand errand;
  dispatch::onMainQueue(
      [receiver = retained(self), kept = retained(argument), action, waiting = waits ? &errand : nullptr] {
        performNow(receiver, action, kept);
        if (waiting) waiting->done();
      });
  if (waits) errand.waitUntilDone();
}

void performOnMainThreadInModes(NSObject self, SEL action, bridge::Object argument, BOOL waits, NSArray) {
  performOnMainThread(self, action, argument, waits);
}

struct InModes : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"performSelectorOnMainThread:withObject:waitUntilDone:modes:",
                 void(SEL, bridge::Object, BOOL, NSArray)>
      perform;
};

template <class T, auto Member, auto Function>
void replace() {
  bridge::replaceMethod(bridge::classNamed<T>(), bridge::Descriptor<Member>::selector(),
                        bridge::implementationOf<Member, Function>(), bridge::slot<Function>);
}

}  // namespace

void watchThreads() {
  using Performing = NSThreadPerformAdditions;
  replace<Threads, &Threads::start, start>();
  replace<Threads, &Threads::main, main>();
  replace<Performing, &Performing::performSelectorOnMainThread_withObject_waitUntilDone,
          performOnMainThread>();
  replace<InModes, &InModes::perform, performOnMainThreadInModes>();
}

}  // namespace sim
