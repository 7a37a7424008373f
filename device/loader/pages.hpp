// Pages of the process that code is put on.
#pragma once

#include <cstddef>

namespace device::loader {

// New ones, where `wish` says if nothing is there, protected as mmap is told.
// Throws Refusal when there is no room.
void* newPages(void* wish, size_t size, int protection);

// What was written there is code from now on: the processor forgets what it knows of the place. Answers
// `start`.
void* asCode(void* start, size_t size);

}  // namespace device::loader
