// CGPath: an outline of lines and curves, kept in full precision.
#pragma once

#include <cairo.h>

#include <array>
#include <vector>

#include "platform/coregraphics/context.hpp"

struct CGPath {
  enum class Kind { move, line, curve, close };
  struct Element {
    Kind kind;
    std::array<CGPoint, 3> points{};  // a curve's two control points and its end; else the end comes first
  };

  /** The next element starts at `current`, once there is one. */
  bool isEmpty() const { return elements.empty(); }

  void move(CGPoint to);
  void line(CGPoint to);
  void curve(CGPoint firstControl, CGPoint secondControl, CGPoint to);
  void close();
  /**
   * A circular arc, joined to what there is by a line. Angles in radians from the x axis towards the y axis;
   * they rise from `start` to `end`, or fall, by a full turn at most.
   */
  void arc(CGPoint center, double radius, double start, double end, bool rising);
  void append(const CGPath& other);

  /** The box around the outline; at infinity and without a size when there is none. */
  CGRect bounds() const;

  std::vector<Element> elements;
  CGPoint current{}, first{};  // of the last outline
};

namespace sim {

/** Adds the path to cairo's. */
void addPath(cairo_t* context, const CGPath& path);

}  // namespace sim
