// What moves by steps from frame to frame rather than by an animation of a layer.
#include "simulator/uikit/animation/frames.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "simulator/device/clock.hpp"

namespace sim::uikit {
namespace {

constexpr double framesPerSecond = 60;  // of every display of the time

struct Waiting {
  const void* owner;
  std::function<bool(double)> step;
  double start;
  long count;  // of frames up to the next one

  double next() const { return start + static_cast<double>(count) / framesPerSecond; }
};

std::vector<Waiting>& waiting() {
  static auto& list = *new std::vector<Waiting>();
  return list;
}

// Whose step is running; nobody once it has been stopped meanwhile.
constinit const void* stepping = nullptr;

auto soonest() {
  return std::min_element(waiting().begin(), waiting().end(),
                          [](const Waiting& a, const Waiting& b) { return a.next() < b.next(); });
}

}  // namespace

void everyFrame(const void* owner, std::function<bool(double)> step) {
  stopFrames(owner);
  waiting().push_back({owner, std::move(step), clock::now(), 1});
}

void stopFrames(const void* owner) {
  if (stepping == owner) stepping = nullptr;
  std::erase_if(waiting(), [owner](const Waiting& one) { return one.owner == owner; });
}

std::optional<double> nextFrame() {
  if (waiting().empty()) return std::nullopt;
  return soonest()->next();
}

void runFrame(double time) {
  if (waiting().empty() || soonest()->next() > time) return;
  // Taken out while it runs: it may stop itself, or start another in its place, which stops it as well.
  Waiting one = std::move(*soonest());
  waiting().erase(soonest());
  stepping = one.owner;
  const bool goesOn = one.step(one.next()) && stepping == one.owner;
  stepping = nullptr;
  if (!goesOn) return;
  ++one.count;
  waiting().push_back(std::move(one));
}

}  // namespace sim::uikit
