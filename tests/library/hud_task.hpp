// A notice box on the home screen, a worker whose task it is shown for, and notes of what happened.
#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "bridge/define.hpp"
#include "platform/foundation/thread.hpp"
#include "tests/library/hud_fixture.hpp"

namespace test {

struct Worker : bridge::Face<"TestHUDWorker", NSObject> {
  MESSAGE Method<"work:", void(bridge::Object)> work;
  MESSAGE Method<"hudWasHidden:", void(RQProgressHUD)> hudWasHidden;
};

struct Sleeping : bridge::Face<"NSThread", NSThread> {
  static constexpr bridge::ClassMethod<"NSThread", "sleepForTimeInterval:", void(double)> forSeconds{};
};

using Notes = std::vector<std::string>;

inline std::mutex notesLock;
inline Notes notes;
inline double workTime = 0;  // seconds

// With a star: on the main thread.
inline void note(std::string what) {
  if (NSThread::isMainThread()) what += "*";
  const std::lock_guard guard(notesLock);
  notes.push_back(what);
}

inline void doWork() {
  note("begin");
  if (workTime > 0) Sleeping::forSeconds(workTime);
  note("end");
}

class ProgressHUDTask : public HUD {
 protected:
  ProgressHUDTask() {
    struct Functions {
      static void work(Worker, bridge::Object argument) {
        note(bridge::as<NSString>(argument).UTF8String());
        doWork();
      }
      static void hudWasHidden(Worker, RQProgressHUD) { note("hidden"); }
    };
    bridge::Implementation<Worker>::define<NSObject>(
        bridge::method<&Worker::work, Functions::work>(),
        bridge::method<&Worker::hudWasHidden, Functions::hudWasHidden>());
    worker = bridge::make<Worker, &NSObject::init>();
    hud->delegate.set(bridge::as<tilo::RQProgressHUDDelegate>(worker.get()));
  }

  void showForThread(BOOL animated) {
    hud->showWhileExecuting_onTarget_withObject_animated(bridge::selector<"work:">(), worker, "argument"_ns,
                                                         animated);
  }
  void showForBlock(BOOL animated) { hud->showAnimated_whileExecutingBlock(animated, Block<void()>(doWork)); }

  Strong<Worker> worker;
};

}  // namespace test
