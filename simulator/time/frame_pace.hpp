// When what moves is shown: sixty times a second, at even moments.
#pragma once

namespace sim {

class FramePace {
 public:
  static constexpr double interval = 1.0 / 60;  // seconds

  /** The moment from which on there may be another frame. */
  double next() const { return due; }
  /**
   * One is shown now. That it is late does not put off those behind it: all are, a little, and each second
   * would lack some. Those that are late by a whole interval, as after a rest, begin anew.
   */
  void show(double now) { due = (now < due + interval ? due : now) + interval; }

 private:
  double due = 0;
};

}  // namespace sim
