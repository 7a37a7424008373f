// Bézier timing curves and springs.
#include "simulator/quartz/timing.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

namespace sim {
namespace {

constexpr double settledDistance = 0.001;

// One coordinate of a Bézier from 0 to 1 with inner control values c1 and c2.
double bezier(double c1, double c2, double t) {
  const double u = 1 - t;
  return 3 * u * u * t * c1 + 3 * u * t * t * c2 + t * t * t;
}

struct SpringRelation {
  double ratio, velocity, duration;

  // How far the envelope at the duration is from the settled distance.
  double excess(double omega) const {
    if (ratio < 1) {
      const double amplitude = (ratio * omega - velocity) / (omega * std::sqrt(1 - ratio * ratio));
      return amplitude * std::exp(-ratio * omega * duration) - settledDistance;
    }
    return std::exp(-omega * duration) * ((omega - velocity) * duration + 1) - settledDistance;
  }

  double slope(double omega) const {
    if (ratio < 1) {
      const double root = std::sqrt(1 - ratio * ratio);
      const double amplitude = (ratio * omega - velocity) / (omega * root);
      return (velocity / (omega * omega * root) - ratio * duration * amplitude) *
             std::exp(-ratio * omega * duration);
    }
    return -duration * (omega - velocity) * duration * std::exp(-omega * duration);
  }

  std::optional<double> newton() const {
    double omega = 5 / duration;
    for (int step = 0; step < 200; ++step) {
      const double change = excess(omega) / slope(omega);
      omega -= change;
      if (!std::isfinite(omega) || omega <= 0) return std::nullopt;
      if (std::abs(change) < 1e-13 * omega) return omega;
    }
    return std::nullopt;
  }

  // The amplitude of the whole oscillation: unlike the relation above never negative, so it always reaches
  // the settled distance somewhere between no frequency and a very high one.
  double amplitude(double omega) const {
    if (ratio < 1) {
      const double sineShare = (ratio * omega - velocity) / (omega * std::sqrt(1 - ratio * ratio));
      return std::hypot(1, sineShare) * std::exp(-ratio * omega * duration);
    }
    return (1 + std::abs(omega - velocity) * duration) * std::exp(-omega * duration);
  }

  double bisect() const {
    double low = 1e-3 / duration, high = 1e5 / duration;
    for (int step = 0; step < 200; ++step) {
      const double middle = (low + high) / 2;
      (amplitude(middle) > settledDistance ? low : high) = middle;
    }
    return high;
  }
};

}  // namespace

double TimingCurve::progress(double fraction) const {
  if (!(fraction > 0)) return 0;
  if (fraction >= 1) return 1;
  if (x1 == y1 && x2 == y2) return fraction;
  // x grows with t for control points inside [0, 1], so halving always closes in; 60 halvings exhaust a
  // double.
  double low = 0, high = 1;
  for (int step = 0; step < 60; ++step) {
    const double middle = (low + high) / 2;
    (bezier(x1, x2, middle) < fraction ? low : high) = middle;
  }
  return bezier(y1, y2, (low + high) / 2);
}

Spring::Spring(double dampingRatio, double initialVelocity, double duration)
    : ratio(std::clamp(dampingRatio, 0.01, 1.0)), velocity(initialVelocity) {
  const SpringRelation relation{ratio, velocity, std::clamp(duration, 0.01, 10.0)};
  const auto solved = relation.newton();
  omega = solved ? *solved : relation.bisect();
}

double Spring::position(double seconds) const {
  if (seconds <= 0) return 0;
  if (ratio < 1) {
    const double damped = omega * std::sqrt(1 - ratio * ratio);
    const double sineShare = (ratio * omega - velocity) / damped;
    return 1 - std::exp(-ratio * omega * seconds) *
                   (std::cos(damped * seconds) + sineShare * std::sin(damped * seconds));
  }
  return 1 - std::exp(-omega * seconds) * (1 + (omega - velocity) * seconds);
}

double progressAt(const Pacing& pacing, double elapsed, double duration) {
  if (elapsed >= duration) return 1;
  if (elapsed <= 0) return 0;
  if (const auto* spring = std::get_if<Spring>(&pacing)) return spring->position(elapsed);
  return std::get<TimingCurve>(pacing).progress(elapsed / duration);
}

}  // namespace sim
