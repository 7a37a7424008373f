// Grand Central Dispatch: the main queue and one-time initialisation.
#pragma once

#include "bridge/encoding.hpp"

extern "C" {
struct dispatch_queue_s;
extern dispatch_queue_s _dispatch_main_q;
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

// Runs `function` once for each `token`, whatever the thread.
inline void once(long& token, void (*function)(void*)) { dispatch_once_f(&token, nullptr, function); }

}  // namespace dispatch
