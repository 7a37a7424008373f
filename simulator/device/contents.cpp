// Reads without waiting for somebody to open a pipe's other end.
#include "simulator/device/contents.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "simulator/device/descriptor.hpp"
#include "simulator/device/usage_error.hpp"

namespace sim {

std::string contents(const std::filesystem::path& file) {
  const Descriptor opened(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  std::string bytes;
  for (;;) {
    char buffer[65536];
    const ssize_t count = opened ? ::read(opened.get(), buffer, sizeof buffer) : -1;
    if (count == 0) return bytes;
    if (count > 0) {
      bytes.append(buffer, static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      pollfd readable = {opened.get(), POLLIN, 0};
      ::poll(&readable, 1, -1);
    } else if (errno != EINTR) {
      throw UsageError(fmt::format("'{}': {}", file.string(), std::strerror(errno)));
    }
  }
}

}  // namespace sim
