// Who may come in: whoever knows the address with its token, from this very place.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sim::serve {

class Gate {
 public:
  /** Of a server at that address and port, with a new token. */
  Gate(std::string listeningAt, int port);

  /** What to open in a browser. */
  std::string address() const;
  /** The part of a request's path behind the token; none without the right one. */
  std::optional<std::string_view> behindToken(std::string_view path) const;
  /**
   * Whether a browser means this server by that Host: not by a name that somebody has pointed here. A server
   * that listens to other machines is also meant by any number.
   */
  bool isOwnHost(std::string_view host) const;
  /** Whether a request comes from a page of this server; programs that are no browsers tell no Origin. */
  bool isOwnOrigin(std::string_view origin) const;

 private:
  std::string listening;
  int port;
  std::string token;
};

}  // namespace sim::serve
