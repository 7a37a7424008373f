// A length, the page and the kind, then the contents. Both ends run on one machine, so numbers are its own.
#include "simulator/serve/envelope.hpp"

#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <string_view>

namespace sim::serve {
namespace {

struct Head {
  std::uint32_t length, page, isText;
};

}  // namespace

bool EnvelopeReader::fill(int socket) {
  bytes.erase(0, taken);
  taken = 0;
  char buffer[65536];
  ssize_t count;
  while ((count = ::recv(socket, buffer, sizeof buffer, MSG_DONTWAIT)) > 0)
    bytes.append(buffer, static_cast<std::size_t>(count));
  return count < 0 && errno == EAGAIN;  // what does not wait is not interrupted either
}

std::optional<Envelope> EnvelopeReader::next() {
  const std::string_view rest = std::string_view(bytes).substr(taken);
  Head head{};
  if (rest.size() < sizeof head) return std::nullopt;
  std::memcpy(&head, rest.data(), sizeof head);
  if (rest.size() - sizeof head < head.length) return std::nullopt;
  taken += sizeof head + head.length;
  return Envelope{head.page, head.isText != 0, std::string(rest.substr(sizeof head, head.length))};
}

std::string sealed(const Envelope& envelope) {
  const Head head{static_cast<std::uint32_t>(envelope.contents.size()), envelope.page,
                  envelope.isText ? 1u : 0u};
  std::string bytes(sizeof head, '\0');
  std::memcpy(bytes.data(), &head, sizeof head);
  return bytes + envelope.contents;
}

}  // namespace sim::serve
