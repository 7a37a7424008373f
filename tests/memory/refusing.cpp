// Stands before the C library's own: of the allocations of LEAST bytes or more one is refused, the PLACE-th.
// How many there were is written behind what stands in the file COUNTS, at the end.
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

std::atomic<long> count;

long numberOf(const char* variable) {
  const char* value = std::getenv(variable);
  return value ? std::atol(value) : 0;
}

bool isRefused(std::size_t size) {
  static const auto least = static_cast<std::size_t>(numberOf("LEAST"));
  static const long place = numberOf("PLACE");
  if (size < least || ++count != place) return false;
  errno = ENOMEM;
  return true;
}

struct Teller {
  ~Teller() {
    const char* name = std::getenv("COUNTS");
    std::FILE* file = name ? std::fopen(name, "a") : nullptr;
    if (!file) return;
    std::fprintf(file, "%ld\n", count.load());
    std::fclose(file);
  }
} teller;

}  // namespace

extern "C" {
__attribute__((visibility("default"))) void* malloc(std::size_t size) {
  return isRefused(size) ? nullptr : __libc_malloc(size);
}

__attribute__((visibility("default"))) void* calloc(std::size_t number, std::size_t size) {
  return isRefused(number * size) ? nullptr : __libc_calloc(number, size);
}

__attribute__((visibility("default"))) void* realloc(void* old, std::size_t size) {
  return isRefused(size) ? nullptr : __libc_realloc(old, size);
}

__attribute__((visibility("default"))) void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return isRefused(size) ? nullptr : __libc_memalign(alignment, size);
}

__attribute__((visibility("default"))) int posix_memalign(void** made, std::size_t alignment,
                                                          std::size_t size) {
  if (isRefused(size)) return ENOMEM;
  *made = __libc_memalign(alignment, size);
  return 0;
}
}
