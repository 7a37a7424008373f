// The token and the two headers that keep other people's pages out.
#include "simulator/serve/gate.hpp"

#include <fmt/format.h>
#include <sys/random.h>

#include <algorithm>
#include <system_error>

namespace sim::serve {
namespace {

constexpr std::string_view scheme = "http://";

// 128 bits, in hexadecimal digits.
std::string newToken() {
  unsigned char bytes[16];
  if (::getrandom(bytes, sizeof bytes, 0) != sizeof bytes)
    throw std::system_error(errno, std::generic_category(), "no random numbers");
  std::string token;
  for (const unsigned char byte : bytes) token += fmt::format("{:02x}", byte);
  return token;
}

bool isNumeric(std::string_view host) {
  return !host.empty() && (host.front() == '[' || std::ranges::all_of(host, [](char c) {
                             return (c >= '0' && c <= '9') || c == '.';
                           }));
}

// In the same time wherever they differ.
bool sameToken(std::string_view one, std::string_view other) {
  if (one.size() != other.size()) return false;
  unsigned difference = 0;
  for (std::size_t i = 0; i < one.size(); ++i) difference |= static_cast<unsigned>(one[i] ^ other[i]);
  return difference == 0;
}

}  // namespace

Gate::Gate(std::string listeningAt, int servedPort)
    : listening(std::move(listeningAt)), port(servedPort), token(newToken()) {}

std::string Gate::address() const {
  const std::string host = listening == "0.0.0.0" ? "127.0.0.1" : listening;
  return fmt::format("{}{}:{}/{}/", scheme, host, port, token);
}

std::optional<std::string_view> Gate::behindToken(std::string_view path) const {
  if (!path.starts_with('/')) return std::nullopt;
  path.remove_prefix(1);
  const std::size_t slash = path.find('/');
  if (slash == std::string_view::npos || !sameToken(path.substr(0, slash), token)) return std::nullopt;
  return path.substr(slash + 1);
}

bool Gate::isOwnHost(std::string_view host) const {
  const std::string suffix = fmt::format(":{}", port);
  if (!host.ends_with(suffix)) return false;
  host.remove_suffix(suffix.size());
  if (host == listening || host == "localhost" || host == "127.0.0.1") return true;
  return listening == "0.0.0.0" && isNumeric(host);
}

bool Gate::isOwnOrigin(std::string_view origin) const {
  return origin.empty() || (origin.starts_with(scheme) && isOwnHost(origin.substr(scheme.size())));
}

}  // namespace sim::serve
