// A wheel with rows of one height on its rim, seen from in front, and how it turns. Pure functions; lengths
// are points, times seconds, velocities points per second. A turn is told as the way that the rim has gone:
// row r is in the middle at r times the rows' height.
#pragma once

#include <optional>

#include "simulator/physics/scroll_motion.hpp"

namespace sim::physics {

/** How a row on the rim shows. */
struct WheelRow {
  double distance;  // of its middle from the wheel's middle; positive is below
  double flatness;  // 1 in the middle, 0 at the edge: what is left of its height
};

/** A wheel as high as the view that it is in, up to a picker's usual height. */
class Wheel {
 public:
  explicit Wheel(double height);

  /** A row whose middle lies `way` along the rim from the wheel's middle; none when it is behind the edge. */
  std::optional<WheelRow> rowAt(double way) const;
  /** The way along the rim to what shows at that distance from the middle; at most to the edge. */
  double wayTo(double distance) const;
  /** The way from the middle to the edge. */
  double reach() const;

 private:
  double radius;
};

/** What a wheel of `rows` rows does that is let go: it comes to rest with one of them in the middle. */
class WheelMotion {
 public:
  WheelMotion(double from, double velocity, double rowHeight, long rows);

  double position(double time) const;
  double duration() const { return length; }
  double restingPlace() const { return rest; }

 private:
  std::optional<Friction> friction;
  std::optional<ScrollMotion> pull;
  double length = 0, rest = 0;
};

}  // namespace sim::physics
