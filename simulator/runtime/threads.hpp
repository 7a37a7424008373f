// Foundation's threads as tasks that the clock waits for, and what they hand over to the main thread.
#pragma once

namespace sim {

/** Once, before the first thread. */
void watchThreads();

}  // namespace sim
