// Linked into a library whose code calls it: notes where that code was, for script/mutate to learn which test
// comes by which line. Addresses within the library, eight bytes each, are added to the file that is named
// after the test, in the folder named after the library in the one that TILO_TOUCHED names; a place is noted
// once a process.
#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

int opened(const char* library) {
  const char* const folder = std::getenv("TILO_TOUCHED");
  const char* const test = std::getenv("TEST_NAME");
  char path[PATH_MAX];
  // A device has the library by another name, as a link.
  if (!folder || !test || !realpath(library, path)) return -1;
  const std::string file = path;
  std::string name = test;
  std::replace(name.begin(), name.end(), '/', '@');
  return open((folder + file.substr(file.rfind('/')) + "/" + name).c_str(),
              O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
}

}  // namespace

extern "C" void __sanitizer_cov_trace_pc_guard_init(uint32_t* start, uint32_t* stop) {
  while (start != stop) *start++ = 1;
}

extern "C" void __sanitizer_cov_trace_pc_guard(uint32_t* guard) {
  if (!*guard) return;
  *guard = 0;
  Dl_info own{};
  if (!dladdr(guard, &own)) return;
  static const int file = opened(own.dli_fname);
  if (file < 0) return;
  const auto* place = static_cast<const char*>(__builtin_return_address(0));
  const uint64_t address = static_cast<uint64_t>(place - static_cast<const char*>(own.dli_fbase));
  (void)!write(file, &address, sizeof address);
}
