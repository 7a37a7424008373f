// Gradients: making and drawing them.
#include "simulator/coregraphics/gradient.hpp"

#include "simulator/coregraphics/context.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/runtime/export.hpp"

namespace {

// Where the gradient is not to go on, a clear stop takes over at its end.
void addStops(cairo_pattern_t* pattern, const CGGradient& gradient, unsigned options) {
  const auto clearAt = [&](double place) { addStop(pattern, place, sim::clearColor); };
  if (!(options & kCGGradientDrawsBeforeStartLocation)) clearAt(0);
  for (const CGGradient::Stop& stop : gradient.stops) addStop(pattern, stop.place, stop.color);
  if (!(options & kCGGradientDrawsAfterEndLocation)) clearAt(1);
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
}

// Fills all that the clip leaves; the path stays.
void draw(CGContextRef context, CGGradientRef gradient, cairo_pattern_t* made, unsigned options) {
  const sim::Pattern pattern(made);
  if (!context || !gradient) return;
  addStops(pattern.get(), *gradient, options);
  sim::drawWithShadow(*context, [&](cairo_t* cairo) {
    cairo_set_source(cairo, pattern.get());
    cairo_paint(cairo);
  });
}

}  // namespace

SIMULATOR_EXPORT CGColorSpaceRef CGColorSpaceCreateDeviceRGB() { return new CGColorSpace; }

SIMULATOR_EXPORT void CGColorSpaceRelease(CGColorSpaceRef space) {
  if (space && --space->references == 0) delete space;
}

// Without places the stops are evenly spaced.
SIMULATOR_EXPORT CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space,
                                                                   const CGFloat* components,
                                                                   const CGFloat* locations, size_t count) {
  if (!space || !components) return nullptr;
  auto* gradient = new CGGradient;
  for (size_t i = 0; i < count; ++i) {
    const CGFloat* color = components + 4 * i;
    const double even = count > 1 ? static_cast<double>(i) / static_cast<double>(count - 1) : 0;
    gradient->stops.push_back({locations ? locations[i] : even, {color[0], color[1], color[2], color[3]}});
  }
  return gradient;
}

SIMULATOR_EXPORT void CGGradientRelease(CGGradientRef gradient) {
  if (gradient && --gradient->references == 0) delete gradient;
}

SIMULATOR_EXPORT void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint start,
                                                  CGPoint end, unsigned options) {
  draw(context, gradient, cairo_pattern_create_linear(start.x, start.y, end.x, end.y), options);
}

SIMULATOR_EXPORT void CGContextDrawRadialGradient(CGContextRef context, CGGradientRef gradient,
                                                  CGPoint startCenter, CGFloat startRadius, CGPoint endCenter,
                                                  CGFloat endRadius, unsigned options) {
  draw(context, gradient,
       cairo_pattern_create_radial(startCenter.x, startCenter.y, startRadius, endCenter.x, endCenter.y,
                                   endRadius),
       options);
}
