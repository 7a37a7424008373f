// Notice boxes that are shown while a thread or a queue works.
#include <algorithm>
#include <mutex>

#include "bridge/define.hpp"
#include "platform/foundation/thread.hpp"
#include "tests/library/hud_fixture.hpp"

namespace test {
namespace {

struct Worker : bridge::Face<"TestHUDWorker", NSObject> {
  MESSAGE Method<"work:", void(bridge::Object)> work;
  MESSAGE Method<"hudWasHidden:", void(RQProgressHUD)> hudWasHidden;
};

struct Sleeping : bridge::Face<"NSThread", NSThread> {
  static constexpr bridge::ClassMethod<"NSThread", "sleepForTimeInterval:", void(double)> forSeconds{};
};

std::mutex notesLock;
std::vector<std::string> notes;
double workTime = 0;  // seconds
RQProgressHUD hudOfWorker;

// With a star: on the main thread.
void note(std::string what) {
  if (NSThread::isMainThread()) what += "*";
  const std::lock_guard guard(notesLock);
  notes.push_back(what);
}

void doWork() {
  note("begin");
  if (workTime > 0) Sleeping::forSeconds(workTime);
  note("end");
}

void work(Worker, bridge::Object argument) {
  note(bridge::as<NSString>(argument).UTF8String());
  doWork();
}

void hudWasHidden(Worker, RQProgressHUD) { note("hidden"); }

using Notes = std::vector<std::string>;

class ProgressHUDTask : public HUD {
 protected:
  ProgressHUDTask() {
    bridge::Implementation<Worker>::define<NSObject>(bridge::method<&Worker::work, work>(),
                                                     bridge::method<&Worker::hudWasHidden, hudWasHidden>());
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

TEST_F(ProgressHUDTask, IsDoneByAThreadOfItsOwnWithItsObject) {
  showForThread(NO);
  sim::settle();
  EXPECT_EQ(notes, (Notes{"argument", "begin", "end", "hidden*"}));
}

TEST_F(ProgressHUDTask, IsInProgressUntilTheMainThreadHeardOfItsEnd) {
  EXPECT_FALSE(hud->taskInProgress());
  showForThread(NO);
  EXPECT_TRUE(hud->taskInProgress());
  sim::settle();
  EXPECT_FALSE(hud->taskInProgress());
}

TEST_F(ProgressHUDTask, OfAThreadShowsTheBoxUntilItEnds) {
  workTime = 2;
  showForThread(YES);
  EXPECT_EQ(alpha(), 0);
  pass(1.999);
  EXPECT_EQ(alpha(), 1);
  EXPECT_TRUE(hud->taskInProgress());
  pass(0.002);
  EXPECT_FALSE(hud->taskInProgress());
  EXPECT_LT(hud->alpha(), 1);
  pass(0.3);
  EXPECT_EQ(hud->alpha(), 0);
  EXPECT_EQ(notes, (Notes{"argument", "begin", "end", "hidden*"}));
}

TEST_F(ProgressHUDTask, KeepsTargetAndObjectNoLongerThanItTakes) {
  const NSUInteger before = worker->retainCount(), hudBefore = hud->retainCount();
  {
    const bridge::Pool pool;
    showForThread(NO);
    EXPECT_GT(worker->retainCount(), before);
    sim::settle();
  }
  EXPECT_EQ(worker->retainCount(), before);
  EXPECT_EQ(hud->retainCount(), hudBefore);
}

TEST_F(ProgressHUDTask, MayBeABlockOnTheDefaultQueue) {
  showForBlock(NO);
  EXPECT_TRUE(hud->taskInProgress());
  sim::settle();
  EXPECT_FALSE(hud->taskInProgress());
  EXPECT_EQ(notes, (Notes{"begin", "end", "hidden*"}));
}

TEST_F(ProgressHUDTask, OfABlockShowsTheBoxUntilItEnds) {
  workTime = 1;
  showForBlock(NO);
  EXPECT_EQ(alpha(), 1);
  pass(0.999);
  EXPECT_EQ(alpha(), 1);
  pass(0.002);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(ProgressHUDTask, OfABlockIsFollowedByItsCompletion) {
  hud->showAnimated_whileExecutingBlock_completionBlock(NO, Block<void()>(doWork),
                                                        Block<void()>([] { note("completed"); }));
  sim::settle();
  EXPECT_EQ(notes, (Notes{"begin", "end", "completed*", "hidden*"}));
  EXPECT_FALSE(hud->completionBlock());
}

TEST_F(ProgressHUDTask, OfABlockLeavesACompletionThatIsThereAlready) {
  hud->completionBlock.set(Block<void()>([] { note("completed"); }));
  showForBlock(NO);
  sim::settle();
  EXPECT_EQ(notes, (Notes{"begin", "end", "completed*", "hidden*"}));
}

TEST_F(ProgressHUDTask, MayBeABlockOnAQueueThatIsNamed) {
  dispatch_queue_s* queue = dispatch_queue_create("test", nullptr);
  dispatch::onQueue(queue, [] { note("before"); });
  hud->showAnimated_whileExecutingBlock_onQueue(NO, Block<void()>(doWork), queue);
  dispatch::onQueue(queue, [] { note("after"); });
  dispatch_release(queue);
  sim::settle();
  EXPECT_EQ(notes, (Notes{"before", "begin", "end", "after", "hidden*"}));
}

TEST_F(ProgressHUDTask, MayBeABlockOnAQueueWithACompletion) {
  dispatch_queue_s* queue = dispatch_queue_create("test", nullptr);
  hud->showAnimated_whileExecutingBlock_onQueue_completionBlock(NO, Block<void()>(doWork), queue,
                                                                Block<void()>([] { note("completed"); }));
  dispatch_release(queue);
  sim::settle();
  EXPECT_EQ(notes, (Notes{"begin", "end", "completed*", "hidden*"}));
}

TEST_F(ProgressHUDTask, MayBeABlockOnTheMainQueue) {
  hud->showAnimated_whileExecutingBlock_onQueue(NO, Block<void()>(doWork), &_dispatch_main_q);
  EXPECT_TRUE(notes.empty());
  sim::settle();
  EXPECT_EQ(notes, (Notes{"begin*", "end*", "hidden*"}));
}

TEST_F(ProgressHUDTask, KeepsTheBoxAlive) {
  view->addSubview(hud);
  hud->removeFromSuperViewOnHide.set(YES);
  workTime = 1;
  const bridge::Pool pool;
  showForBlock(YES);
  hud->removeFromSuperview();
  hud.clear();
  pass(2);
  EXPECT_EQ(notes, (Notes{"begin", "end", "hidden*"}));
}

// The time that a box is held back.

TEST_F(ProgressHUDTask, ThatEndsWithinTheGraceTimeShowsNothing) {
  hud->graceTime.set(0.5f);
  workTime = 0.4;
  showForBlock(YES);
  for (int i = 0; i < 20; ++i) {
    pass(0.1);
    ASSERT_EQ(alpha(), 0);
    ASSERT_EQ(hud->alpha(), 0);
  }
  EXPECT_EQ(notes, (Notes{"begin", "end", "hidden*"}));
}

TEST_F(ProgressHUDTask, ThatTakesLongerThanTheGraceTimeShowsTheBoxThen) {
  hud->graceTime.set(0.5f);
  workTime = 2;
  showForThread(NO);
  pass(0.4995);
  EXPECT_EQ(alpha(), 0);
  pass(0.001);
  EXPECT_EQ(alpha(), 1);
  pass(1.6);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(ProgressHUDTask, ThatEndsEarlyLeavesTheBoxForItsLeastTime) {
  hud->minShowTime.set(1);
  workTime = 0.2;
  showForBlock(NO);
  pass(0.9995);
  EXPECT_EQ(alpha(), 1);
  pass(0.001);
  EXPECT_EQ(alpha(), 0);
}

// Properties that the task changes.

TEST_F(ProgressHUDTask, ChangesThePropertiesOfTheBoxOnTheMainThread) {
  hudOfWorker = hud;
  hud->mode.set(1);
  hud->showAnimated_whileExecutingBlock(NO, Block<void()>([] {
                                          hudOfWorker.progress.set(0.25f);
                                          hudOfWorker.labelText.set("Halfway"_ns);
                                          hudOfWorker.detailsLabelText.set("There is more"_ns);
                                          hudOfWorker.labelColor.set(UIColor::redColor());
                                          Sleeping::forSeconds(1);
                                          hudOfWorker.mode.set(2);
                                          hudOfWorker.progress.set(0.75f);
                                          Sleeping::forSeconds(1);
                                        }));
  sim::settle();
  EXPECT_EQ(part<tilo::RQRoundProgressView>().progress(), 0.25f);
  EXPECT_STREQ(label(0).text().UTF8String(), "Halfway");
  EXPECT_STREQ(label(1).text().UTF8String(), "There is more");
  EXPECT_TRUE(label(0).textColor() == UIColor::redColor());
  pass(1.5);
  EXPECT_FALSE(part<tilo::RQRoundProgressView>());
  EXPECT_EQ(part<tilo::RQBarProgressView>().progress(), 0.75f);
}

TEST_F(ProgressHUDTask, LeavesTheLabelsToTheMainThread) {
  static UILabel ownLabel;
  hudOfWorker = hud, ownLabel = label(0);
  hud->showAnimated_whileExecutingBlock(NO, Block<void()>([] {
                                          hudOfWorker.labelText.set("Halfway"_ns);
                                          note(ownLabel.text() ? "changed at once" : "not changed yet");
                                        }));
  sim::settle();
  EXPECT_EQ(std::count(notes.begin(), notes.end(), "not changed yet"), 1);
  EXPECT_STREQ(ownLabel.text().UTF8String(), "Halfway");
}

TEST_F(ProgressHUDTask, MayChangeAPropertyWhileTheMainThreadReadsIt) {
  hudOfWorker = hud;
  hud->show(NO);
  dispatch::onQueue(dispatch::defaultQueue(), [] {
    for (int i = 0; i < 300; ++i) {
      const bridge::Pool pool;
      hudOfWorker.labelText.set(NSString::stringWithUTF8String(std::to_string(i).c_str()));
      hudOfWorker.progress.set(static_cast<float>(i) / 300);
    }
  });
  for (int i = 0; i < 300; ++i) {
    const bridge::Pool pool;
    NSString text = hud->labelText();
    ASSERT_LE(text.length(), 3u);
    ASSERT_LT(hud->progress(), 1);
  }
  sim::settle();
  EXPECT_STREQ(label(0).text().UTF8String(), "299");
}

// A progress view that notes when it is to be drawn anew.
struct NotedRound : bridge::Face<"TestNotedRound", tilo::RQRoundProgressView> {};
using NotedRoundClass = bridge::Implementation<NotedRound>;

void noteRedraw(NotedRound self) {
  note("redraw");
  NotedRoundClass::super<&UIView::setNeedsDisplay>(self);
}

TEST_F(ProgressHUDTask, MayChangeAProgressViewByItself) {
  NotedRoundClass::define<tilo::RQRoundProgressView>(bridge::method<&UIView::setNeedsDisplay, noteRedraw>());
  static tilo::RQRoundProgressView round;
  static tilo::RQBarProgressView bar;
  auto ownRound = bridge::make<NotedRound, &NSObject::init>();
  auto ownBar = bridge::make<tilo::RQBarProgressView, &NSObject::init>();
  round = bridge::as<tilo::RQRoundProgressView>(ownRound.get());
  bar = bridge::as<tilo::RQBarProgressView>(ownBar.get());
  view->addSubview(round);
  view->addSubview(bar);
  notes.clear();
  dispatch::onQueue(dispatch::defaultQueue(), [] {
    round.progress.set(0.5f);
    bar.progress.set(0.5f);
    bar.lineColor.set(UIColor::redColor());
    note("changed");
  });
  sim::settle();
  EXPECT_EQ(notes, (Notes{"changed", "redraw*"}));
  EXPECT_EQ(round.progress(), 0.5f);
  EXPECT_EQ(bar.progress(), 0.5f);
}

}  // namespace
}  // namespace test
