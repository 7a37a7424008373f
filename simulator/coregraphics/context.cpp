// CGContext's functions.
#include "simulator/coregraphics/context.hpp"

#include <numbers>

#include "simulator/coregraphics/color.hpp"
#include "simulator/runtime/export.hpp"

CGContext::CGContext(cairo_t* context) : cairo(context) {
  cairo_set_line_width(cairo, 1);
  cairo_new_path(cairo);
}

namespace {

void useRule(cairo_t* cairo, bool evenOdd) {
  cairo_set_fill_rule(cairo, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
}

void fillPath(CGContext& context, bool evenOdd) {
  const sim::Color color = context.state().fill;
  sim::drawWithShadow(context, [=](cairo_t* cairo) {
    useRule(cairo, evenOdd);
    setSource(cairo, color);
    cairo_fill_preserve(cairo);
  });
}

void strokePath(CGContext& context) {
  const sim::Color color = context.state().stroke;
  sim::drawWithShadow(context, [=](cairo_t* cairo) {
    setSource(cairo, color);
    cairo_stroke_preserve(cairo);
  });
}

void addRect(cairo_t* cairo, const CGRect& rect) {
  cairo_rectangle(cairo, rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
}

void addEllipse(cairo_t* cairo, const CGRect& rect) {
  if (rect.size.width == 0 || rect.size.height == 0) return;
  cairo_matrix_t matrix;  // unlike a saved state it leaves the path alone
  cairo_get_matrix(cairo, &matrix);
  cairo_translate(cairo, rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2);
  cairo_scale(cairo, rect.size.width / 2, rect.size.height / 2);
  cairo_new_sub_path(cairo);
  cairo_arc(cairo, 0, 0, 1, 0, 2 * std::numbers::pi);
  cairo_close_path(cairo);
  cairo_set_matrix(cairo, &matrix);
}

void clip(CGContext& context, bool evenOdd) {
  useRule(context.cairo, evenOdd);
  cairo_clip(context.cairo);
}

}  // namespace

SIMULATOR_EXPORT void CGContextSaveGState(CGContextRef context) {
  if (!context) return;
  cairo_save(context->cairo);
  context->states.push_back(context->state());
}

SIMULATOR_EXPORT void CGContextRestoreGState(CGContextRef context) {
  if (!context || context->states.size() == 1) return;
  cairo_restore(context->cairo);
  context->states.pop_back();
}

SIMULATOR_EXPORT void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color) {
  if (context) context->state().fill = sim::colorOf(color);
}

SIMULATOR_EXPORT void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color) {
  if (context) context->state().stroke = sim::colorOf(color);
}

SIMULATOR_EXPORT void CGContextSetLineWidth(CGContextRef context, CGFloat width) {
  if (context) cairo_set_line_width(context->cairo, width);
}

// No colour ends the shadow.
SIMULATOR_EXPORT void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur,
                                                  CGColorRef color) {
  if (!context) return;
  context->state().shadow = sim::colorOf(color);
  context->state().shadowOffset = offset;
  context->state().shadowBlur = blur;
}

SIMULATOR_EXPORT void CGContextBeginPath(CGContextRef context) {
  if (context) cairo_new_path(context->cairo);
}

SIMULATOR_EXPORT void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y) {
  if (context) cairo_move_to(context->cairo, x, y);
}

SIMULATOR_EXPORT void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y) {
  if (context) cairo_line_to(context->cairo, x, y);
}

// "Clockwise" is meant for a y axis that points upwards: it stands for falling angles.
SIMULATOR_EXPORT void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius,
                                      CGFloat start, CGFloat end, int clockwise) {
  if (context) (clockwise ? cairo_arc_negative : cairo_arc)(context->cairo, x, y, radius, start, end);
}

SIMULATOR_EXPORT void CGContextAddRect(CGContextRef context, CGRect rect) {
  if (context) addRect(context->cairo, rect);
}

SIMULATOR_EXPORT void CGContextClosePath(CGContextRef context) {
  if (context) cairo_close_path(context->cairo);
}

// The path is gone afterwards.
SIMULATOR_EXPORT void CGContextDrawPath(CGContextRef context, int mode) {
  if (!context) return;
  const bool evenOdd = mode == kCGPathEOFill || mode == kCGPathEOFillStroke;
  if (mode != kCGPathStroke) fillPath(*context, evenOdd);
  if (mode != kCGPathFill && mode != kCGPathEOFill) strokePath(*context);
  cairo_new_path(context->cairo);
}

SIMULATOR_EXPORT void CGContextFillRect(CGContextRef context, CGRect rect) {
  if (!context) return;
  cairo_new_path(context->cairo);
  addRect(context->cairo, rect);
  CGContextDrawPath(context, kCGPathFill);
}

SIMULATOR_EXPORT void CGContextFillEllipseInRect(CGContextRef context, CGRect rect) {
  if (!context) return;
  cairo_new_path(context->cairo);
  addEllipse(context->cairo, rect);
  CGContextDrawPath(context, kCGPathFill);
}

SIMULATOR_EXPORT void CGContextStrokeEllipseInRect(CGContextRef context, CGRect rect) {
  if (!context) return;
  cairo_new_path(context->cairo);
  addEllipse(context->cairo, rect);
  CGContextDrawPath(context, kCGPathStroke);
}

SIMULATOR_EXPORT void CGContextClip(CGContextRef context) {
  if (context) clip(*context, false);
}

SIMULATOR_EXPORT void CGContextEOClip(CGContextRef context) {
  if (context) clip(*context, true);
}
