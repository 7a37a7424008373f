// Marks what the library, or a library below it, finds in the simulator's executable.
#pragma once

#define SIMULATOR_EXPORT extern "C" __attribute__((visibility("default"), used))
