// By way of Linux.
#include "device/loader/pages.hpp"

#include <sys/mman.h>

#include "device/loader/layout.hpp"

namespace device::loader {

void* newPages(void* wish, size_t size, int protection) {
  void* pages = mmap(wish, size, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (pages == MAP_FAILED) throw Refusal("no room in memory");
  return pages;
}

void* asCode(void* start, size_t size) {
  auto* first = static_cast<char*>(start);
  __builtin___clear_cache(first, first + size);
  return start;
}

}  // namespace device::loader
