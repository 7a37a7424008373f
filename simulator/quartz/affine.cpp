// Arithmetic of affine transforms.
#include "simulator/quartz/affine.hpp"

#include <algorithm>
#include <cmath>

namespace sim {

CGAffineTransform concat(const CGAffineTransform& first, const CGAffineTransform& second) {
  return {first.a * second.a + first.b * second.c,
          first.a * second.b + first.b * second.d,
          first.c * second.a + first.d * second.c,
          first.c * second.b + first.d * second.d,
          first.tx * second.a + first.ty * second.c + second.tx,
          first.tx * second.b + first.ty * second.d + second.ty};
}

CGAffineTransform translation(double x, double y) { return {1, 0, 0, 1, x, y}; }

CGAffineTransform scaling(double x, double y) { return {x, 0, 0, y, 0, 0}; }

CGAffineTransform rotation(double radians) {
  const double cosine = std::cos(radians), sine = std::sin(radians);
  return {cosine, sine, -sine, cosine, 0, 0};
}

bool hasInverse(const CGAffineTransform& t) {
  const double determinant = t.a * t.d - t.b * t.c;
  // Below this a whole screen shrinks to less than a millionth of a point, and cairo refuses the matrix.
  constexpr double least = 1e-18;
  return std::isfinite(determinant) && std::isfinite(t.tx) && std::isfinite(t.ty) &&
         std::abs(determinant) >= least;
}

std::optional<CGAffineTransform> inverse(const CGAffineTransform& t) {
  if (!hasInverse(t)) return std::nullopt;
  const double determinant = t.a * t.d - t.b * t.c;
  return CGAffineTransform{t.d / determinant,
                           -t.b / determinant,
                           -t.c / determinant,
                           t.a / determinant,
                           (t.c * t.ty - t.d * t.tx) / determinant,
                           (t.b * t.tx - t.a * t.ty) / determinant};
}

CGPoint apply(const CGAffineTransform& t, CGPoint p) {
  return {t.a * p.x + t.c * p.y + t.tx, t.b * p.x + t.d * p.y + t.ty};
}

CGRect boundingBox(const CGAffineTransform& transform, const CGRect& rect) {
  const double right = rect.origin.x + rect.size.width, bottom = rect.origin.y + rect.size.height;
  if (transform.b == 0 && transform.c == 0) {
    const CGPoint one = apply(transform, rect.origin), other = apply(transform, {right, bottom});
    const auto [left, rightmost] = std::minmax({one.x, other.x});
    const auto [top, lowest] = std::minmax({one.y, other.y});
    return {{left, top}, {rightmost - left, lowest - top}};
  }
  const CGPoint corners[] = {apply(transform, rect.origin), apply(transform, {right, rect.origin.y}),
                             apply(transform, {rect.origin.x, bottom}), apply(transform, {right, bottom})};
  const auto [left, rightmost] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
  const auto [top, lowest] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
  return {{left, top}, {rightmost - left, lowest - top}};
}

CGRect standardized(const CGRect& rect) {
  CGRect result = rect;
  if (rect.size.width < 0) {
    result.origin.x += rect.size.width;
    result.size.width = -rect.size.width;
  }
  if (rect.size.height < 0) {
    result.origin.y += rect.size.height;
    result.size.height = -rect.size.height;
  }
  return result;
}

CGRect unionOf(const CGRect& a, const CGRect& b) {
  if (a.size.width <= 0 || a.size.height <= 0) return b;
  if (b.size.width <= 0 || b.size.height <= 0) return a;
  const double left = std::min(a.origin.x, b.origin.x), top = std::min(a.origin.y, b.origin.y);
  const double right = std::max(a.origin.x + a.size.width, b.origin.x + b.size.width);
  const double bottom = std::max(a.origin.y + a.size.height, b.origin.y + b.size.height);
  return {{left, top}, {right - left, bottom - top}};
}

TransformParts partsOf(const CGAffineTransform& t) {
  const double scaleX = std::hypot(t.a, t.b);
  if (scaleX == 0) {
    // The x axis is gone: take the angle from the y axis, so that a flattened rotation stays one.
    const double scaleY = std::hypot(t.c, t.d);
    const double angle = scaleY == 0 ? 0 : std::atan2(-t.c, t.d);
    return {t.tx, t.ty, angle, 0, scaleY, 0};
  }
  const double cosine = t.a / scaleX, sine = t.b / scaleX;
  return {t.tx, t.ty, std::atan2(sine, cosine), scaleX, t.d * cosine - t.c * sine, t.c * cosine + t.d * sine};
}

CGAffineTransform transformOf(const TransformParts& p) {
  const double cosine = std::cos(p.angle), sine = std::sin(p.angle);
  return {p.scaleX * cosine,
          p.scaleX * sine,
          p.shear * cosine - p.scaleY * sine,
          p.shear * sine + p.scaleY * cosine,
          p.x,
          p.y};
}

}  // namespace sim
