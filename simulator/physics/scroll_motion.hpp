// How scrolled content moves, one axis at a time: held beyond its edge, coasting, pulled to a place. Pure
// functions of time; points, seconds and points per second throughout.
#pragma once

#include <optional>

namespace sim::physics {

/** Where content may rest. */
struct ScrollRange {
  double low, high;

  bool contains(double offset) const { return offset >= low && offset <= high; }
  double nearest(double offset) const;
};

/**
 * How far content shows beyond its edge when it is pulled `distance` beyond it, in a view of that size along
 * the axis: x·c·d / (c·x + d) with c = 0.55, so never as far as the view is large.
 */
double rubberBand(double distance, double dimension);
/** The distance that shows as `shown`. */
double rubberBandInverse(double shown, double dimension);

/** The offset shown for one that may lie outside the range, and the other way round. */
double banded(double offset, ScrollRange range, double dimension);
double unbanded(double shown, ScrollRange range, double dimension);

/** Coasting: of the velocity, `rate` is left after each millisecond. */
class Friction {
 public:
  Friction(double from, double velocity, double rate);

  double position(double time) const;
  double velocity(double time) const;
  /** Where it would come to rest. */
  double restingPlace() const;
  /** When it passes a place; none when it never gets there. */
  std::optional<double> timeAt(double place) const;
  /** When less than half a point of the way is left. */
  double duration() const;

 private:
  double from, initial, decay;  // the decay per second of the velocity's logarithm
};

/** A pull towards a place that comes to rest there as fast as it can without swinging. */
class Pull {
 public:
  Pull(double from, double velocity, double to);

  double position(double time) const;
  double velocity(double time) const;
  /** From when on it is within half a point of its place. */
  double duration() const;

 private:
  double to, distance, slope;
};

/** What one axis does after it has been let go. */
class ScrollMotion {
 public:
  /** Coasts; beyond an edge of the range it is pulled back, or stops there when it does not bounce. */
  static ScrollMotion coasting(double from, double velocity, double rate, ScrollRange range, bool bounces);
  /** Goes to a place without passing it. */
  static ScrollMotion towards(double from, double velocity, double to);

  double position(double time) const;
  double duration() const { return length; }
  /** Where it comes to rest. */
  double restingPlace() const { return rest; }

 private:
  ScrollMotion() = default;

  std::optional<Friction> friction;
  std::optional<Pull> pull;
  double contact = 0;  // when the pull takes over
  double length = 0, rest = 0;
};

}  // namespace sim::physics
