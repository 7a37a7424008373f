// Building outlines and measuring them.
#include "simulator/coregraphics/path.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "simulator/coregraphics/context.hpp"
#include "simulator/runtime/export.hpp"

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;

// How far an arc goes: rising by 0 to a full turn, or falling.
double sweepOf(double start, double end, bool rising) {
  double sweep = rising ? end - start : start - end;
  if (sweep < 0) sweep = fullTurn - std::fmod(-sweep, fullTurn);
  sweep = std::min(sweep, fullTurn);
  return rising ? sweep : -sweep;
}

struct Range {
  double least = std::numeric_limits<double>::infinity(), most = -least;
  void take(double value) {
    least = std::min(least, value);
    most = std::max(most, value);
  }
};

double onCurve(const double (&p)[4], double t) {
  const double u = 1 - t;
  return u * u * u * p[0] + 3 * u * u * t * p[1] + 3 * u * t * t * p[2] + t * t * t * p[3];
}

// The extremes of a cubic curve along one axis lie where its slope is zero.
void takeCurve(Range& range, const double (&p)[4]) {
  const double a = p[3] - p[0] + 3 * (p[1] - p[2]), b = 2 * (p[0] - 2 * p[1] + p[2]), c = p[1] - p[0];
  const auto take = [&](double t) {
    if (t > 0 && t < 1) range.take(onCurve(p, t));
  };
  range.take(p[3]);
  if (std::abs(a) < 1e-12) {
    if (b != 0) take(-c / b);
    return;
  }
  const double inside = b * b - 4 * a * c;
  if (inside < 0) return;
  const double root = std::sqrt(inside);
  take((-b + root) / (2 * a));
  take((-b - root) / (2 * a));
}

}  // namespace

void CGPath::move(CGPoint to) {
  elements.push_back({Kind::move, {to}});
  current = first = to;
}

void CGPath::line(CGPoint to) {
  elements.push_back({Kind::line, {to}});
  current = to;
}

void CGPath::curve(CGPoint firstControl, CGPoint secondControl, CGPoint to) {
  elements.push_back({Kind::curve, {firstControl, secondControl, to}});
  current = to;
}

void CGPath::close() {
  if (isEmpty()) return;
  elements.push_back({Kind::close});
  current = first;
}

// By curves of a quarter turn at most, which keep to the circle within 0.03 % of its radius.
void CGPath::arc(CGPoint center, double radius, double start, double end, bool rising) {
  const double sweep = sweepOf(start, end, rising);
  const int parts = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / (fullTurn / 4) - 1e-9)));
  const double step = sweep / parts, reach = 4.0 / 3 * std::tan(step / 4);
  const auto at = [&](double angle, double along) {
    return CGPoint{center.x + radius * (std::cos(angle) - along * std::sin(angle)),
                   center.y + radius * (std::sin(angle) + along * std::cos(angle))};
  };
  isEmpty() ? move(at(start, 0)) : line(at(start, 0));
  for (int part = 0; part < parts; ++part) {
    const double from = start + part * step, to = from + step;
    curve(at(from, reach), at(to, -reach), at(to, 0));
  }
}

void CGPath::append(const CGPath& other) {
  const std::vector<Element> added = other.elements;  // which may be this path's own
  elements.insert(elements.end(), added.begin(), added.end());
  if (added.empty()) return;
  current = other.current;
  first = other.first;
}

CGRect CGPath::bounds() const {
  Range x, y;
  CGPoint from{}, beginning{};
  for (const Element& element : elements) {
    const auto& p = element.points;
    if (element.kind == Kind::close) {
      from = beginning;
      continue;
    }
    if (element.kind == Kind::curve) {
      takeCurve(x, {from.x, p[0].x, p[1].x, p[2].x});
      takeCurve(y, {from.y, p[0].y, p[1].y, p[2].y});
      from = p[2];
      continue;
    }
    x.take(p[0].x);
    y.take(p[0].y);
    from = p[0];
    if (element.kind == Kind::move) beginning = from;
  }
  if (x.least > x.most) return {{x.least, y.least}, {}};
  return {{x.least, y.least}, {x.most - x.least, y.most - y.least}};
}

void sim::addPath(cairo_t* context, const CGPath& path) {
  for (const CGPath::Element& element : path.elements) {
    const auto& p = element.points;
    switch (element.kind) {
      case CGPath::Kind::move:
        cairo_move_to(context, p[0].x, p[0].y);
        break;
      case CGPath::Kind::line:
        cairo_line_to(context, p[0].x, p[0].y);
        break;
      case CGPath::Kind::curve:
        cairo_curve_to(context, p[0].x, p[0].y, p[1].x, p[1].y, p[2].x, p[2].y);
        break;
      case CGPath::Kind::close:
        cairo_close_path(context);
    }
  }
}

SIMULATOR_EXPORT void CGContextAddPath(CGContextRef context, CGPathRef path) {
  if (context && path) sim::addPath(context->cairo, *path);
}
