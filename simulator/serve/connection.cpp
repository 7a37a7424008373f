// Headers, reasons and ends of connections.
#include "simulator/serve/connection.hpp"

namespace sim::serve {

std::string header(lws* connection, lws_token_indexes which) {
  std::string text(static_cast<std::size_t>(lws_hdr_total_length(connection, which)) + 1, '\0');
  const int length = lws_hdr_copy(connection, text.data(), static_cast<int>(text.size()), which);
  text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return text;
}

int refuse(lws* connection, std::string_view reason) {
  std::string text(reason);
  lws_close_reason(connection, LWS_CLOSE_STATUS_POLICY_VIOLATION,
                   reinterpret_cast<unsigned char*>(text.data()), text.size());
  return -1;
}

void drop(lws* connection) { lws_set_timeout(connection, PENDING_TIMEOUT_USER_OK, LWS_TO_KILL_ASYNC); }

double seconds() { return static_cast<double>(lws_now_usecs()) / 1e6; }

}  // namespace sim::serve
