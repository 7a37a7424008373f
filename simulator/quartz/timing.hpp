// How far an animation has come at a given time: Bézier timing curves and springs, as pure functions.
#pragma once

#include <variant>

namespace sim {

/**
 * A timing curve: the cubic Bézier from (0,0) to (1,1) with control points (x1,y1) and (x2,y2), read as
 * progress over the fraction of the duration that has passed.
 */
struct TimingCurve {
  double x1, y1, x2, y2;

  /** Progress at a fraction of the duration; fractions outside [0, 1] count as the nearer end. */
  double progress(double fraction) const;
  bool operator==(const TimingCurve&) const = default;
};

// Control points of the platform's own curves.
inline constexpr TimingCurve linearCurve{0, 0, 1, 1};
inline constexpr TimingCurve easeInCurve{0.42, 0, 1, 1};
inline constexpr TimingCurve easeOutCurve{0, 0, 0.58, 1};
inline constexpr TimingCurve easeInOutCurve{0.42, 0, 0.58, 1};
// Of implicit animations of layers that no view owns.
inline constexpr TimingCurve defaultCurve{0.25, 0.1, 0.25, 1};

/**
 * A spring of mass 1 that goes from 0 to 1 and has all but settled at its duration.
 *
 * Stiffness is frequency², damping 2 · ratio · frequency. The frequency is solved from the envelope, by
 * the relation between UIKit's springs and Core Animation's:
 *   ratio < 1: (ratio·ω − v) / (ω·√(1 − ratio²)) · e^(−ratio·ω·T) = 0.001
 *   ratio = 1: e^(−ω·T) · ((ω − v)·T + 1) = 0.001
 */
class Spring {
 public:
  /**
   * `dampingRatio` is clamped to [0.01, 1], `duration` (seconds) to [0.01, 10]. `velocity` is in whole
   * distances per second. Where a high velocity leaves the relation without a solution, the frequency is
   * that at which the true amplitude of the oscillation is a thousandth.
   */
  Spring(double dampingRatio, double velocity, double duration);

  /** Undamped angular frequency ω, radians per second. */
  double frequency() const { return omega; }
  /** Position at a time in seconds since the start; 0 before it. Passes 1 when the ratio is below 1. */
  double position(double seconds) const;
  bool operator==(const Spring&) const = default;

 private:
  double ratio, velocity, omega;
};

using Pacing = std::variant<TimingCurve, Spring>;

/** Progress `elapsed` seconds after the start of an animation of `duration` seconds: 0 before, 1 from the
 * end. */
double progressAt(const Pacing& pacing, double elapsed, double duration);

}  // namespace sim
