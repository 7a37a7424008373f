// The main queue and one-time initialisation.
#include "simulator/runtime/dispatch.hpp"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/dispatch/dispatch.hpp"
#include "simulator/time/run_loop.hpp"
#include "tests/bridge/counted.hpp"

namespace {

std::vector<int> done;

using Done = std::vector<int>;

TEST(MainQueue, RunsNothingAtOnce) {
  EXPECT_TRUE(sim::mainQueueIsEmpty());
  dispatch::onMainQueue([] { done.push_back(1); });
  EXPECT_EQ(done, Done{});
  EXPECT_FALSE(sim::mainQueueIsEmpty());
  EXPECT_TRUE(sim::runMainQueue());
  EXPECT_EQ(done, Done{1});
  EXPECT_TRUE(sim::mainQueueIsEmpty());
}

TEST(MainQueue, RunsWhatItHoldsInOrder) {
  for (int i = 0; i < 5; ++i) dispatch::onMainQueue([i] { done.push_back(i); });
  sim::runMainQueue();
  EXPECT_EQ(done, (Done{0, 1, 2, 3, 4}));
}

TEST(MainQueue, LeavesWhatItsWorkQueuesForALaterTurn) {
  dispatch::onMainQueue([] {
    dispatch::onMainQueue([] { done.push_back(3); });
    done.push_back(1);
  });
  dispatch::onMainQueue([] { done.push_back(2); });
  sim::runMainQueue();
  EXPECT_EQ(done, (Done{1, 2}));
  sim::runMainQueue();
  EXPECT_EQ(done, (Done{1, 2, 3}));
  EXPECT_FALSE(sim::runMainQueue());
}

TEST(MainQueue, IsEmptyWhenTheRunLoopHasSettled) {
  dispatch::onMainQueue(
      [] { dispatch::onMainQueue([] { dispatch::onMainQueue([] { done.push_back(1); }); }); });
  sim::settle();
  EXPECT_EQ(done, Done{1});
  EXPECT_TRUE(sim::mainQueueIsEmpty());
}

TEST(MainQueue, TakesWorkFromOtherThreads) {
  std::thread::id main = std::this_thread::get_id(), ran;
  std::thread([&] { dispatch::onMainQueue([&ran] { ran = std::this_thread::get_id(); }); }).join();
  sim::runMainQueue();
  EXPECT_EQ(ran, main);
}

TEST(MainQueue, KeepsAnObjectUntilItsWorkIsDone) {
  id object = test::newCounted();
  dispatch::onMainQueue([kept = bridge::adopt<test::Counted>(object)] {
    EXPECT_EQ(test::counts.deallocs, 0);
    EXPECT_TRUE(kept);
  });
  EXPECT_EQ(test::counts.deallocs, 0);
  sim::runMainQueue();
  EXPECT_EQ(test::counts.deallocs, 1);
}

TEST(MainQueue, HasAPoolForEachPieceOfWork) {
  static id object = nullptr;
  object = test::newCounted();
  dispatch::onMainQueue([] { bridge::autorelease(object); });
  dispatch::onMainQueue([] { EXPECT_EQ(test::counts.deallocs, 1); });
  sim::runMainQueue();
  EXPECT_EQ(test::counts.deallocs, 1);
}

TEST(OneTimeInitialisation, RunsOnceForEachToken) {
  long token = 0, other = 0;
  int count = 0;
  auto count_up = [](void* context) { ++*static_cast<int*>(context); };
  dispatch_once_f(&token, &count, count_up);
  dispatch_once_f(&token, &count, count_up);
  EXPECT_EQ(count, 1);
  EXPECT_NE(token, 0);
  dispatch_once_f(&other, &count, count_up);
  EXPECT_EQ(count, 2);
}

TEST(OneTimeInitialisation, MayNeedAnother) {
  static long inner = 0;
  static int count = 0;
  long outer = 0;
  dispatch_once_f(&outer, nullptr, [](void*) {
    dispatch_once_f(&inner, nullptr, [](void*) { count = count * 10 + 1; });
    count = count * 10 + 2;
  });
  EXPECT_EQ(count, 12);
}

TEST(OneTimeInitialisation, IsDoneByOneThread) {
  static int count = 0;
  long token = 0;
  auto once = [&] { dispatch_once_f(&token, nullptr, [](void*) { ++count; }); };
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) threads.emplace_back(once);
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(count, 1);
}

}  // namespace
