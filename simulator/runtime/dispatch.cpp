// Grand Central Dispatch as far as it is used: one-time initialisation, the main queue, and queues whose work
// is done by threads, as tasks that the clock waits for.
#include "simulator/runtime/dispatch.hpp"

#include <atomic>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

#include "bridge/runtime.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "simulator/runtime/export.hpp"
#include "simulator/runtime/tasks.hpp"

struct dispatch_queue_s {
  enum class Kind { main, serial, concurrent };
  const Kind kind = Kind::main;
  std::mutex lock{};
  std::deque<bridge::Block<void()>> blocks{};
  bool working = false;        // a serial queue: a thread takes its blocks
  std::atomic<int> users = 1;  // whoever made the queue, and its thread
};

__attribute__((visibility("default"))) dispatch_queue_s _dispatch_main_q;

extern "C" {
BOOL GSRegisterCurrentThread();
void GSUnregisterCurrentThread();
}

namespace {

using Work = bridge::Block<void()>;
using Queue = dispatch_queue_s;

// Does `work` as a task on a thread of its own, which Foundation knows. Whatever the thread held is released
// before the task ends.
void onNewThread(auto work) {
  sim::tasks::begin();
  std::thread([work = std::move(work)]() mutable {
    sim::tasks::enter();
    GSRegisterCurrentThread();
    {
      auto held = std::move(work);
      held();
    }
    GSUnregisterCurrentThread();
    sim::tasks::end();
  }).detach();
}

void runBlock(Work block) {
  const bridge::Pool pool;
  const Work held = std::move(block);
  held();
}

// The next block of a serial queue; none ends its thread.
Work nextOf(Queue& queue) {
  const std::lock_guard guard(queue.lock);
  if (queue.blocks.empty()) {
    queue.working = false;
    return {};
  }
  Work next = std::move(queue.blocks.front());
  queue.blocks.pop_front();
  return next;
}

void runInOrder(Queue* queue) {
  while (Work next = nextOf(*queue)) runBlock(std::move(next));
  dispatch_release(queue);
}

// Answers whether the queue has no thread yet.
bool append(Queue& queue, Work block) {
  const std::lock_guard guard(queue.lock);
  queue.blocks.push_back(std::move(block));
  return queue.kind == Queue::Kind::serial && !std::exchange(queue.working, true);
}

}  // namespace

// All priorities are one queue, that of the host's threads.
SIMULATOR_EXPORT Queue* dispatch_get_global_queue(long, unsigned long) {
  static auto& queue = *new Queue{.kind = Queue::Kind::concurrent};
  return &queue;
}

// Without attributes a queue does one thing after the other.
SIMULATOR_EXPORT Queue* dispatch_queue_create(const char*, const void* attributes) {
  return new Queue{.kind = attributes ? Queue::Kind::concurrent : Queue::Kind::serial};
}

SIMULATOR_EXPORT void dispatch_release(Queue* queue) {
  if (--queue->users == 0) delete queue;
}

SIMULATOR_EXPORT void dispatch_async(Queue* queue, void* block) {
  Work kept(bridge::BlockRef<void()>{static_cast<bridge::BlockHeader*>(block)});
  if (queue->kind == Queue::Kind::concurrent)
    return onNewThread([work = std::move(kept)]() mutable { runBlock(std::move(work)); });
  if (!append(*queue, std::move(kept))) return;
  ++queue->users;
  onNewThread([queue] { runInOrder(queue); });
}

SIMULATOR_EXPORT void dispatch_once_f(long* token, void* context, void (*function)(void*)) {
  static std::recursive_mutex lock;
  if (__atomic_load_n(token, __ATOMIC_ACQUIRE)) return;
  std::lock_guard guard(lock);
  if (*token) return;
  function(context);
  __atomic_store_n(token, 1L, __ATOMIC_RELEASE);
}

namespace sim {

bool runMainQueue() {
  std::deque<bridge::Block<void()>> turn;
  {
    const std::lock_guard guard(_dispatch_main_q.lock);
    turn.swap(_dispatch_main_q.blocks);
  }
  for (auto& block : turn) {
    bridge::Pool pool;
    block();
  }
  return !turn.empty();
}

bool mainQueueIsEmpty() {
  const std::lock_guard guard(_dispatch_main_q.lock);
  return _dispatch_main_q.blocks.empty();
}

}  // namespace sim
