// Reads and replaces files through the C library, whose functions know the device's file system.
#include "simulator/device/whole_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "simulator/device/descriptor.hpp"

namespace sim {
namespace {

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count > 0)
      bytes.remove_prefix(static_cast<std::size_t>(count));
    else if (count == 0 || errno != EINTR)
      return false;
  }
  return true;
}

// As a file that is new is everybody's to read, and the old one's were its owner's to say.
bool takeRightsOf(const std::string& path, int descriptor) {
  constexpr mode_t usual = 0644, rights = 07777;
  struct stat old;
  if (::stat(path.c_str(), &old) != 0) return ::fchmod(descriptor, usual) == 0;
  if (old.st_uid != ::geteuid() && ::fchown(descriptor, old.st_uid, old.st_gid) != 0) return false;
  return ::fchmod(descriptor, old.st_mode & rights) == 0;
}

}  // namespace

std::optional<WholeFile> wholeFile(const std::string& path) {
  const Descriptor opened(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  const auto state = opened ? stateOf(opened.get()) : std::nullopt;
  if (!state) return {};
  WholeFile file{std::string(static_cast<std::size_t>(state->size) + 1, '\0'), *state};
  std::size_t length = 0;
  // Until it ends: it may be longer than it was.
  for (;;) {
    const ssize_t count = ::read(opened.get(), file.bytes.data() + length, file.bytes.size() - length);
    if (count < 0 && errno != EINTR) return {};
    if (count == 0) break;
    if (count > 0) length += static_cast<std::size_t>(count);
    if (length == file.bytes.size()) file.bytes.resize(2 * length);
  }
  file.bytes.resize(length);
  return file;
}

bool replaceFile(const std::string& path, std::string_view bytes) {
  std::string made = path + "XXXXXX";
  Descriptor opened(::mkstemp(made.data()));
  if (!opened) return false;
  const bool isWritten = takeRightsOf(path, opened.get()) && writeAll(opened.get(), bytes);
  if (isWritten && ::rename(made.c_str(), path.c_str()) == 0) return true;
  ::unlink(made.c_str());
  return false;
}

}  // namespace sim
