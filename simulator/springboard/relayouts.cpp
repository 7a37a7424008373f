// A ring of the last calls, so that a day of use takes no more memory than its first minutes.
#include "simulator/springboard/relayouts.hpp"

#include <utility>

namespace sim::springboard {
namespace {

constexpr std::size_t most = 1000;

struct Calls {
  std::vector<Relayout> ring;
  std::size_t total = 0;
};

Calls& calls() {
  static auto& all = *new Calls();
  return all;
}

}  // namespace

void noteRelayout(Relayout call) {
  auto& [ring, total] = calls();
  ring.reserve(most);
  if (ring.size() < most)
    ring.push_back(std::move(call));
  else
    ring[total % most] = std::move(call);
  ++total;
}

std::vector<Relayout> relayouts() {
  const auto& [ring, total] = calls();
  const auto oldest = ring.begin() + static_cast<long>(ring.size() < most ? 0 : total % most);
  std::vector<Relayout> ordered(oldest, ring.end());
  ordered.insert(ordered.end(), ring.begin(), oldest);
  return ordered;
}

std::size_t relayoutsLeftOut() { return calls().total - calls().ring.size(); }

}  // namespace sim::springboard
