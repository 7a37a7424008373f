// Messages between a page's server and its home screen: bytes in any portions, whole envelopes back, and
// those that come back are sealed and opened again as they were.
#include "simulator/serve/envelope.hpp"

#include <sys/socket.h>
#include <unistd.h>

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  int ends[2];
  if (length > 4096 || ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends) != 0) return 0;
  sim::serve::EnvelopeReader reader;
  const std::size_t first = length ? bytes[0] % length : 0;
  for (const auto& [from, to] : {std::pair(std::size_t{0}, first), std::pair(first, length)}) {
    if (::send(ends[0], bytes + from, to - from, 0) < 0) break;
    reader.fill(ends[1]);
    while (const auto envelope = reader.next()) {
      sim::serve::EnvelopeReader again;
      const std::string sealed = sim::serve::sealed(*envelope);
      int other[2];
      if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, other) != 0) break;
      if (::send(other[0], sealed.data(), sealed.size(), 0) == static_cast<ssize_t>(sealed.size())) {
        again.fill(other[1]);
        const auto same = again.next();
        if (!same || same->contents != envelope->contents || same->page != envelope->page ||
            same->isText != envelope->isText)
          __builtin_trap();
      }
      ::close(other[0]);
      ::close(other[1]);
    }
  }
  ::close(ends[0]);
  ::close(ends[1]);
  return 0;
}
