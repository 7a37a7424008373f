// The main dispatch queue.
#pragma once

namespace sim {

// Runs what was queued before the call, in order; what that queues waits for the next turn.
// Answers whether there was anything.
bool runMainQueue();
bool mainQueueIsEmpty();

}  // namespace sim
