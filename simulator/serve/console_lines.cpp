// The system log, from where a page has read to.
#include "simulator/serve/console_lines.hpp"

#include <algorithm>

#include "simulator/runtime/console.hpp"

namespace sim::serve {
namespace {

constexpr std::size_t mostLines = 500;  // that are told at once: the last ones

Json lines(Simulation&, const Json& message) {
  const std::vector<std::string>& all = console();
  const double asked = std::clamp(message.value("after").get<double>(), 0.0, 1e9);
  const std::size_t first = std::min(static_cast<std::size_t>(asked), all.size());
  const std::size_t told = std::max(first, all.size() - std::min(all.size(), mostLines));
  return {{"lines", Json::Array(all.begin() + static_cast<long>(told), all.end())}, {"count", all.size()}};
}

constexpr PageMessage messages[] = {{"console", lines}};

}  // namespace

std::span<const PageMessage> consoleMessages() { return messages; }

}  // namespace sim::serve
