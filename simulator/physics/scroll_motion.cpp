// How scrolled content moves.
#include "simulator/physics/scroll_motion.hpp"

#include <algorithm>
#include <cmath>

namespace sim::physics {
namespace {

constexpr double elasticity = 0.55;
constexpr double closeEnough = 0.5;  // points: less than a pixel of any screen but the coarsest
// Radians per second. Chosen so that a page turns in about half a second.
constexpr double pullFrequency = 15;
// Points per second with which content may arrive at an edge, whatever it had.
constexpr double fastestArrival = 5000;

}  // namespace

double ScrollRange::nearest(double offset) const { return std::clamp(offset, low, std::max(low, high)); }

double rubberBand(double distance, double dimension) {
  if (distance <= 0 || dimension <= 0) return 0;
  return distance * elasticity * dimension / (elasticity * distance + dimension);
}

double rubberBandInverse(double shown, double dimension) {
  if (shown <= 0 || shown >= dimension) return 0;
  return shown * dimension / (elasticity * (dimension - shown));
}

double banded(double offset, ScrollRange range, double dimension) {
  const double edge = range.nearest(offset);
  return offset < edge ? edge - rubberBand(edge - offset, dimension)
                       : edge + rubberBand(offset - edge, dimension);
}

double unbanded(double shown, ScrollRange range, double dimension) {
  const double edge = range.nearest(shown);
  return shown < edge ? edge - rubberBandInverse(edge - shown, dimension)
                      : edge + rubberBandInverse(shown - edge, dimension);
}

Friction::Friction(double start, double velocity, double rate)
    : from(start), initial(velocity), decay(-1000 * std::log(rate)) {}

double Friction::position(double time) const { return from + initial * -std::expm1(-decay * time) / decay; }
double Friction::velocity(double time) const { return initial * std::exp(-decay * time); }
double Friction::restingPlace() const { return from + initial / decay; }

std::optional<double> Friction::timeAt(double place) const {
  if (place == from) return 0;
  if (initial == 0) return std::nullopt;
  const double left = 1 - (place - from) * decay / initial;  // of the velocity
  if (left <= 0 || left > 1) return std::nullopt;
  return -std::log(left) / decay;
}

double Friction::duration() const {
  const double way = std::abs(initial) / decay;
  return way > closeEnough ? std::log(way / closeEnough) / decay : 0;
}

Pull::Pull(double from, double velocity, double place)
    : to(place), distance(from - place), slope(velocity + pullFrequency * distance) {}

double Pull::position(double time) const {
  return to + (distance + slope * time) * std::exp(-pullFrequency * time);
}

double Pull::velocity(double time) const {
  return (slope - pullFrequency * (distance + slope * time)) * std::exp(-pullFrequency * time);
}

double Pull::duration() const {
  // An envelope that falls from its peak on.
  const auto envelope = [this](double time) {
    return (std::abs(distance) + std::abs(slope) * time) * std::exp(-pullFrequency * time);
  };
  double low = slope == 0 ? 0 : std::max(0.0, 1 / pullFrequency - std::abs(distance / slope));
  if (envelope(low) <= closeEnough) return 0;
  double high = low + 1;
  while (envelope(high) > closeEnough) high += 1;
  while (high - low > 1e-6) {
    const double middle = (low + high) / 2;
    (envelope(middle) > closeEnough ? low : high) = middle;
  }
  return high;
}

ScrollMotion ScrollMotion::coasting(double from, double velocity, double rate, ScrollRange range,
                                    bool bounces) {
  ScrollMotion motion;
  const double edge = range.nearest(from);
  if (edge != from) {
    motion.pull.emplace(from, std::clamp(velocity, -fastestArrival, fastestArrival), edge);
    motion.rest = edge;
    motion.length = motion.pull->duration();
    return motion;
  }
  const Friction& friction = motion.friction.emplace(from, velocity, rate);
  const double end = friction.restingPlace();
  motion.rest = range.nearest(end);
  if (motion.rest == end) {
    motion.length = friction.duration();
    motion.rest = friction.position(motion.length);
    return motion;
  }
  motion.contact = motion.length = friction.timeAt(motion.rest).value_or(0);
  const double arrival = bounces ? friction.velocity(motion.contact) : 0;
  motion.pull.emplace(motion.rest, std::clamp(arrival, -fastestArrival, fastestArrival), motion.rest);
  motion.length += motion.pull->duration();
  return motion;
}

ScrollMotion ScrollMotion::towards(double from, double velocity, double to) {
  ScrollMotion motion;
  // Faster than this it would pass its place.
  const double fastest = pullFrequency * std::abs(to - from);
  motion.pull.emplace(from, std::clamp(velocity, -fastest, fastest), to);
  motion.rest = to;
  motion.length = motion.pull->duration();
  return motion;
}

double ScrollMotion::position(double time) const {
  if (time >= length) return rest;
  if (friction && (!pull || time < contact)) return friction->position(time);
  return pull->position(time - contact);
}

}  // namespace sim::physics
