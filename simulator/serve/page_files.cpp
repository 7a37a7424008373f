// The page's files, taken in when this is compiled.
#include "simulator/serve/page_files.hpp"

namespace sim::serve {
namespace {

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wc23-extensions"
constexpr char html[] = {
#embed "page/index.html"
};
constexpr char css[] = {
#embed "page/page.css"
};
constexpr char script[] = {
#embed "page/page.js"
};
#pragma clang diagnostic pop

template <std::size_t count>
std::string_view text(const char (&bytes)[count]) {
  return {bytes, count};
}

}  // namespace

std::optional<PageFile> pageFile(std::string_view name) {
  if (name.empty()) return PageFile{"text/html; charset=utf-8", text(html)};
  if (name == "page.css") return PageFile{"text/css; charset=utf-8", text(css)};
  if (name == "page.js") return PageFile{"text/javascript; charset=utf-8", text(script)};
  return std::nullopt;
}

}  // namespace sim::serve
