// UIBezierPath.
#include "platform/uikit/bezier_path.hpp"

#include <algorithm>
#include <numbers>

#include "bridge/define.hpp"
#include "simulator/coregraphics/path.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"

namespace sim::uikit {
namespace {

struct PathState {
  CGPath path;
  CGFloat lineWidth = 1;
  int lineCapStyle = kCGLineCapButt;
  BOOL usesEvenOddFillRule = NO;
};

using PathClass = bridge::Implementation<UIBezierPath, PathState>;

constexpr double quarter = std::numbers::pi / 2;

CGPath& pathOf(UIBezierPath self) { return PathClass::state(self).path; }

UIBezierPath made(CGPath path) {
  auto object = bridge::make<UIBezierPath, &NSObject::init>();
  pathOf(object) = std::move(path);
  return std::move(object).autoreleased();
}

UIBezierPath bezierPath(Class) { return made({}); }

UIBezierPath withRect(Class, CGRect rect) {
  const auto [origin, size] = rect;
  CGPath path;
  path.move(origin);
  path.line({origin.x + size.width, origin.y});
  path.line({origin.x + size.width, origin.y + size.height});
  path.line({origin.x, origin.y + size.height});
  path.close();
  return made(std::move(path));
}

UIBezierPath withOval(Class, CGRect rect) {
  const CGPoint center{rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
  CGPath path;
  path.arc({0, 0}, 1, 0, 4 * quarter, true);
  path.close();
  for (CGPath::Element& element : path.elements)
    for (CGPoint& point : element.points)
      point = {center.x + point.x * rect.size.width / 2, center.y + point.y * rect.size.height / 2};
  path.current = path.first = {rect.origin.x + rect.size.width, center.y};
  return made(std::move(path));
}

// The radius goes up to half the shorter side.
UIBezierPath withRoundedRect(Class self, CGRect rect, CGFloat radius) {
  const double r = std::min({radius, rect.size.width / 2, rect.size.height / 2});
  if (r <= 0) return withRect(self, rect);
  const double left = rect.origin.x + r, right = rect.origin.x + rect.size.width - r;
  const double top = rect.origin.y + r, bottom = rect.origin.y + rect.size.height - r;
  CGPath path;
  path.arc({left, top}, r, 2 * quarter, 3 * quarter, true);
  path.arc({right, top}, r, 3 * quarter, 4 * quarter, true);
  path.arc({right, bottom}, r, 0, quarter, true);
  path.arc({left, bottom}, r, quarter, 2 * quarter, true);
  path.close();
  return made(std::move(path));
}

CGPathRef cgPath(UIBezierPath self) { return &pathOf(self); }
void moveToPoint(UIBezierPath self, CGPoint point) { pathOf(self).move(point); }

// A line needs a beginning.
void addLine(UIBezierPath self, CGPoint point) {
  if (!pathOf(self).isEmpty()) pathOf(self).line(point);
}

void addArc(UIBezierPath self, CGPoint center, CGFloat radius, CGFloat start, CGFloat end, BOOL clockwise) {
  pathOf(self).arc(center, radius, start, end, clockwise);
}

void appendPath(UIBezierPath self, UIBezierPath other) {
  if (other) pathOf(self).append(pathOf(other));
}

void closePath(UIBezierPath self) { pathOf(self).close(); }
CGRect bounds(UIBezierPath self) { return pathOf(self).bounds(); }
void setLineCapStyle(UIBezierPath self, int style) { PathClass::state(self).lineCapStyle = style; }
void setUsesEvenOdd(UIBezierPath self, BOOL uses) { PathClass::state(self).usesEvenOddFillRule = uses; }

// Draws with the context's colours; its own path and line stay as they are.
void draw(UIBezierPath self, int mode) {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  if (!context) return;
  const PathState& state = PathClass::state(self);
  constexpr cairo_line_cap_t caps[] = {CAIRO_LINE_CAP_BUTT, CAIRO_LINE_CAP_ROUND, CAIRO_LINE_CAP_SQUARE};
  cairo_path_t* old = cairo_copy_path(context->cairo);
  CGContextSaveGState(context);
  cairo_set_line_width(context->cairo, state.lineWidth);
  cairo_set_line_cap(context->cairo, caps[std::clamp(state.lineCapStyle, 0, 2)]);
  CGContextBeginPath(context);
  CGContextAddPath(context, &state.path);
  CGContextDrawPath(context, mode);
  CGContextRestoreGState(context);
  cairo_append_path(context->cairo, old);
  cairo_path_destroy(old);
}

void fill(UIBezierPath self) {
  draw(self, PathClass::state(self).usesEvenOddFillRule ? kCGPathEOFill : kCGPathFill);
}

void stroke(UIBezierPath self) { draw(self, kCGPathStroke); }

void addClip(UIBezierPath self) {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  if (!context) return;
  CGContextBeginPath(context);
  CGContextAddPath(context, &pathOf(self));
  PathClass::state(self).usesEvenOddFillRule ? CGContextEOClip(context) : CGContextClip(context);
}

}  // namespace

void defineBezierPath() {
  using bridge::method;
  using Face = UIBezierPath;
  PathClass::define<NSObject>(
      method<&Face::bezierPath, bezierPath>(), method<&Face::bezierPathWithRect, withRect>(),
      method<&Face::bezierPathWithOvalInRect, withOval>(),
      method<&Face::bezierPathWithRoundedRect_cornerRadius, withRoundedRect>(),
      method<&Face::CGPath, cgPath>(), method<&Face::moveToPoint, moveToPoint>(),
      method<&Face::addLineToPoint, addLine>(),
      method<&Face::addArcWithCenter_radius_startAngle_endAngle_clockwise, addArc>(),
      method<&Face::appendPath, appendPath>(), method<&Face::closePath, closePath>(),
      method<&Face::bounds, bounds>(), PathClass::property<&Face::lineWidth, &PathState::lineWidth>(),
      method<&Face::setLineCapStyle, setLineCapStyle>(),
      method<&Face::setUsesEvenOddFillRule, setUsesEvenOdd>(), method<&Face::fill, fill>(),
      method<&Face::stroke, stroke>(), method<&Face::addClip, addClip>());
}

}  // namespace sim::uikit
