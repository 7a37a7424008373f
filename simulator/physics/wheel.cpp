// A wheel with rows of one height on its rim, seen from in front, and how it turns.
#include "simulator/physics/wheel.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace sim::physics {
namespace {

constexpr double largestRadius = 108;  // points: that of a picker of the usual height
constexpr double quarterTurn = std::numbers::pi / 2;
// Below this a row is a line.
constexpr double leastFlatness = 0.08;

// Of the velocity, this much is left after each millisecond: a wheel turns less freely than a page scrolls.
constexpr double usualRate = 0.996;
// What the braking may be, per second, for the wheel to stop at a row and still look as if it only coasted.
constexpr double leastBraking = 2, mostBraking = 12;

}  // namespace

Wheel::Wheel(double height) : radius(std::clamp(height / 2, 1.0, largestRadius)) {}

std::optional<WheelRow> Wheel::rowAt(double way) const {
  const double angle = way / radius;
  if (std::abs(angle) >= quarterTurn || std::cos(angle) < leastFlatness) return std::nullopt;
  return WheelRow{radius * std::sin(angle), std::cos(angle)};
}

double Wheel::wayTo(double distance) const {
  return radius * std::asin(std::clamp(distance / radius, -1.0, 1.0));
}

double Wheel::reach() const { return radius * quarterTurn; }

WheelMotion::WheelMotion(double from, double velocity, double rowHeight, long rows) {
  const ScrollRange range{0, static_cast<double>(std::max(rows - 1, 0L)) * rowHeight};
  const double natural = Friction(from, velocity, usualRate).restingPlace();
  if (!range.contains(from) || !range.contains(natural)) {
    // Beyond an end there is a row at the end of the pull back.
    pull = ScrollMotion::coasting(from, velocity, usualRate, range, true);
    length = pull->duration();
    rest = pull->restingPlace();
    return;
  }
  rest = range.nearest(std::round(natural / rowHeight) * rowHeight);
  const double braking = rest == from ? 0 : velocity / (rest - from);
  if (braking >= leastBraking && braking <= mostBraking) {
    friction.emplace(from, velocity, std::exp(-braking / 1000));
    length = friction->duration();
  } else {
    pull = ScrollMotion::towards(from, velocity, rest);
    length = pull->duration();
  }
}

double WheelMotion::position(double time) const {
  if (time >= length) return rest;
  return friction ? friction->position(time) : pull->position(time);
}

}  // namespace sim::physics
