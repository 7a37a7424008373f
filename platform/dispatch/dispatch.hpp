// Grand Central Dispatch: queues and one-time initialisation.
#pragma once

#include "bridge/encoding.hpp"

extern "C" {
struct dispatch_queue_s;
extern dispatch_queue_s _dispatch_main_q;
// Priority 0 is the default one. The queue belongs to the system.
dispatch_queue_s* dispatch_get_global_queue(long priority, unsigned long flags);
// Without attributes it is serial. Whoever creates a queue releases it.
dispatch_queue_s* dispatch_queue_create(const char* label, const void* attributes);
void dispatch_release(dispatch_queue_s* queue);
void dispatch_async(dispatch_queue_s* queue, void* block);
void dispatch_once_f(long* token, void* context, void (*function)(void*));
}

// Queues are objects to the class runtime.
template <>
struct bridge::Encoding<dispatch_queue_s*> {
  static constexpr Name text = "@";
};

namespace dispatch {

// Runs `work` on a later turn of the main run loop.
inline void onMainQueue(bridge::Block<void()> work) { dispatch_async(&_dispatch_main_q, work.raw()); }

// Runs `work` on a queue, which keeps the block until then.
inline void onQueue(dispatch_queue_s* queue, bridge::Block<void()> work) {
  dispatch_async(queue, work.raw());
}

// The concurrent queue of default priority.
inline dispatch_queue_s* defaultQueue() { return dispatch_get_global_queue(0, 0); }

// Runs `function` once for each `token`, whatever the thread.
inline void once(long& token, void (*function)(void*)) { dispatch_once_f(&token, nullptr, function); }

}  // namespace dispatch
