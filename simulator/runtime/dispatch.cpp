// Grand Central Dispatch as far as it is used: one-time initialisation and the main queue.
#include "simulator/runtime/dispatch.hpp"

#include <deque>
#include <mutex>

#include "bridge/runtime.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "simulator/runtime/export.hpp"

struct dispatch_queue_s {
  std::mutex lock;
  std::deque<bridge::Block<void()>> blocks;
};

__attribute__((visibility("default"))) dispatch_queue_s _dispatch_main_q;

SIMULATOR_EXPORT void dispatch_async(dispatch_queue_s* queue, void* block) {
  bridge::Block<void()> kept(bridge::BlockRef<void()>{static_cast<bridge::BlockHeader*>(block)});
  std::lock_guard guard(queue->lock);
  queue->blocks.push_back(std::move(kept));
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
    std::lock_guard guard(_dispatch_main_q.lock);
    turn.swap(_dispatch_main_q.blocks);
  }
  for (auto& block : turn) {
    bridge::Pool pool;
    block();
  }
  return !turn.empty();
}

bool mainQueueIsEmpty() {
  std::lock_guard guard(_dispatch_main_q.lock);
  return _dispatch_main_q.blocks.empty();
}

}  // namespace sim
