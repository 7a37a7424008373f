// Notice boxes that are shown while a thread or a queue works.
#include <atomic>
#include <chrono>
#include <thread>

#include "platform/foundation/notification_center.hpp"
#include "tests/library/hud_task.hpp"

namespace test {
namespace {

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

// The thread that a notification of its end comes from.
struct Ending : bridge::Face<"TestEnding", NSObject> {
  MESSAGE Method<"threadEnds:", void(NSNotification)> threadEnds;
};

std::atomic<bool> ended = false;
void threadEnds(Ending, NSNotification) { ended = true; }

TEST_F(ProgressHUDTask, EndsItsThreadWhateverTheMainThreadIsBusyWith) {
  bridge::Implementation<Ending>::define<NSObject>(bridge::method<&Ending::threadEnds, threadEnds>());
  const auto listener = bridge::make<Ending, &NSObject::init>();
  NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
      listener, bridge::selector<"threadEnds:">(), "NSThreadWillExitNotification"_ns, {});
  showForThread(NO);
  for (int i = 0; i < 10'000 && !ended; ++i) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_TRUE(ended);
  EXPECT_TRUE(hud->taskInProgress());
  NSNotificationCenter::defaultCenter().removeObserver(listener);
  sim::settle();
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

}  // namespace
}  // namespace test
