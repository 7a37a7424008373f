// Notice boxes that somebody lets go of last: they end on the main thread, wherever that was.
#include <mutex>

#include "bridge/define.hpp"
#include "bridge/replace.hpp"
#include "platform/foundation/thread.hpp"
#include "tests/library/hud_fixture.hpp"

namespace test {
namespace {

using Notes = std::vector<std::string>;

std::mutex notesLock;
Notes notes;

// With a star: on the main thread.
void note(std::string what) {
  if (NSThread::isMainThread()) what += "*";
  const std::lock_guard guard(notesLock);
  notes.push_back(what);
}

void noteDeath(RQProgressHUD self) {
  note("dead");
  bridge::original<noteDeath>(self);
}

struct Sleeping : bridge::Face<"NSThread", NSThread> {
  static constexpr bridge::ClassMethod<"NSThread", "sleepForTimeInterval:", void(double)> forSeconds{};
};

// What a task leaves to its thread's pool. With it the thread goes on for a second when the main thread has
// heard of the task's end.
struct Remainder : bridge::Face<"TestHUDRemainder", NSObject> {};
struct Lasting {
  double seconds = 1;
  ~Lasting() {
    Sleeping::forSeconds(seconds);
    note("end");
  }
};
using RemainderClass = bridge::Implementation<Remainder, Lasting>;

struct Worker : bridge::Face<"TestHUDWorker", NSObject> {
  MESSAGE Method<"work:", void(bridge::Object)> work;
};

void work(Worker, bridge::Object) {
  note("begin");
  auto remainder = bridge::make<Remainder, &NSObject::init>();
  RemainderClass::state(remainder);
  [[maybe_unused]] const Remainder left = std::move(remainder).autoreleased();
}

class ProgressHUDEnd : public HUD {
 protected:
  ProgressHUDEnd() { bridge::install(bridge::replace<RQProgressHUD, &NSObject::dealloc, noteDeath>()); }
};

TEST_F(ProgressHUDEnd, IsOnTheMainThreadWhenTheThreadOfItsTaskLetsGoLast) {
  RemainderClass::define<NSObject>();
  bridge::Implementation<Worker>::define<NSObject>(bridge::method<&Worker::work, work>());
  {
    const bridge::Pool pool;
    hud->removeFromSuperViewOnHide.set(YES);
    hud->showWhileExecuting_onTarget_withObject_animated(
        bridge::selector<"work:">(), bridge::make<Worker, &NSObject::init>().get(), {}, NO);
    hud->removeFromSuperview();
    hud.clear();
  }
  pass(0.5);
  EXPECT_EQ(notes, Notes{"begin"}) << "the thread holds the box";
  pass(1);
  EXPECT_EQ(notes, (Notes{"begin", "end", "dead*"}));
}

TEST_F(ProgressHUDEnd, IsOnTheMainThreadWhenAQueueLetsGoLast) {
  hud->removeFromSuperview();
  dispatch::onQueue(dispatch::defaultQueue(), [last = std::move(hud)]() mutable {
    note("begin");
    last.clear();
    note("end");
  });
  sim::settle();
  EXPECT_EQ(notes, (Notes{"begin", "end", "dead*"}));
}

}  // namespace
}  // namespace test
