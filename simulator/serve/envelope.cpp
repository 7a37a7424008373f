// A length, the page and the kind, then the contents. Both ends run on one machine, so numbers are its own.
#include "simulator/serve/envelope.hpp"

#include <sys/socket.h>

#include <cerrno>
#include <cstring>

namespace sim::serve {
namespace {

struct Head {
  std::uint32_t length, page, isText;
};

}  // namespace

bool EnvelopeReader::fill(int socket) {
  char buffer[1 << 16];
  for (;;) {
    const ssize_t count = ::recv(socket, buffer, sizeof buffer, MSG_DONTWAIT);
    if (count > 0)
      bytes.append(buffer, static_cast<std::size_t>(count));
    else if (count == 0 || (errno != EINTR && errno != EAGAIN && errno != EWOULDBLOCK))
      return false;
    else if (errno != EINTR)
      return true;
  }
}

std::optional<Envelope> EnvelopeReader::next() {
  Head head{};
  if (bytes.size() < sizeof head) return std::nullopt;
  std::memcpy(&head, bytes.data(), sizeof head);
  if (bytes.size() - sizeof head < head.length) return std::nullopt;
  Envelope envelope{head.page, head.isText != 0, bytes.substr(sizeof head, head.length)};
  bytes.erase(0, sizeof head + head.length);
  return envelope;
}

std::string sealed(const Envelope& envelope) {
  const Head head{static_cast<std::uint32_t>(envelope.contents.size()), envelope.page,
                  envelope.isText ? 1u : 0u};
  std::string bytes(sizeof head, '\0');
  std::memcpy(bytes.data(), &head, sizeof head);
  return bytes + envelope.contents;
}

}  // namespace sim::serve
