// Headers.
#include "simulator/serve/response.hpp"

#include <string>
#include <utility>

namespace sim::serve {
namespace {

constexpr const char* policy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob:; connect-src 'self'; "
    "base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

constexpr std::pair<const char*, std::string_view> headers[] = {{"content-security-policy:", policy},
                                                                {"referrer-policy:", "no-referrer"},
                                                                {"x-content-type-options:", "nosniff"},
                                                                {"cache-control:", "no-store"}};

const unsigned char* bytesOf(const char* text) { return reinterpret_cast<const unsigned char*>(text); }

}  // namespace

bool sendHead(lws* connection, unsigned status, std::string_view type, std::size_t length) {
  unsigned char buffer[LWS_PRE + 2048];
  unsigned char *at = buffer + LWS_PRE, *start = at, *end = buffer + sizeof buffer - 1;
  if (lws_add_http_common_headers(connection, status, std::string(type).c_str(), length, &at, end))
    return false;
  for (const auto& [name, value] : headers)
    if (lws_add_http_header_by_name(connection, bytesOf(name), bytesOf(value.data()),
                                    static_cast<int>(value.size()), &at, end))
      return false;
  return !lws_finalize_write_http_header(connection, start, &at, end);
}

}  // namespace sim::serve
