// Drawing BButton.
#include "controls/button_drawing.hpp"

#include "controls/button_colors.hpp"
#include "platform/uikit/bezier_path.hpp"

namespace tilo {
namespace {

constexpr CGFloat disabledSaturation = 0.6f;  // part of the saturation that a disabled button keeps

UIColor lighter(UIColor color, CGFloat by) {
  return bridge::as<ButtonColor>(color).bb_lightenColorWithValue(by);
}

UIColor darker(UIColor color, CGFloat by) {
  return bridge::as<ButtonColor>(color).bb_darkenColorWithValue(by);
}

// The colour as it is shown while the button takes touches, or does not.
UIColor shown(BButton self, UIColor color) {
  if (self.enabled()) return color;
  return bridge::as<ButtonColor>(color).bb_desaturatedColorToPercentSaturation(disabledSaturation);
}

CGRect inset(const CGRect& rect, CGFloat by) {
  return {{rect.origin.x + by, rect.origin.y + by}, {rect.size.width - 2 * by, rect.size.height - 2 * by}};
}

UIBezierPath rounded(const CGRect& rect, CGFloat radius) {
  return UIBezierPath::bezierPathWithRoundedRect_cornerRadius(rect, radius);
}

CGFloat radiusOf(BButton self) { return self.buttonCornerRadius().floatValue(); }

// Style 0.

constexpr CGFloat border = 1;             // around the body, points
constexpr CGFloat highlightRoom = 1;      // below the border
constexpr CGSize highlightOffset{0, 1};   // of the lit outer edge
constexpr CGFloat highlightAlpha = 0.4f;  // of its white
constexpr CGSize innerShadowOffset{0, 1}, pressedShadowOffset{0, 2};
constexpr CGFloat pressedShadowBlur = 4;  // an unpressed button's upper edge is a sharp line
constexpr CGFloat innerShadowAlpha = 0.35f;

// From the upper edge of the rectangle to its lower edge, within what the context's clip leaves.
void drawGradient(CGContextRef context, const CGRect& rect, UIColor upper, UIColor lower) {
  CGFloat parts[8];
  upper.getRed_green_blue_alpha(parts, parts + 1, parts + 2, parts + 3);
  lower.getRed_green_blue_alpha(parts + 4, parts + 5, parts + 6, parts + 7);
  const CGFloat places[] = {0, 1};
  CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
  CGGradientRef gradient = CGGradientCreateWithColorComponents(space, parts, places, 2);
  CGContextDrawLinearGradient(context, gradient, rect.origin,
                              {rect.origin.x, rect.origin.y + rect.size.height}, 0);
  CGGradientRelease(gradient);
  CGColorSpaceRelease(space);
}

// Filled with the border's colours, over a white edge that looks out below it.
void drawBorder(BButton self, CGContextRef context, const CGRect& rect, UIColor color) {
  const UIBezierPath outline = rounded(rect, radiusOf(self));
  CGContextSaveGState(context);
  CGContextSetShadowWithColor(context, highlightOffset, 0,
                              UIColor::colorWithWhite_alpha(1, highlightAlpha).CGColor());
  CGContextSetFillColorWithColor(context, color.CGColor());
  CGContextAddPath(context, outline.CGPath());
  CGContextDrawPath(context, kCGPathFill);
  CGContextRestoreGState(context);
  CGContextSaveGState(context);
  outline.addClip();
  drawGradient(context, rect, darker(color, 0.15f), darker(color, 0.3f));
  CGContextRestoreGState(context);
}

// A frame around the outline, itself out of sight, casts its shadow into it.
void drawInnerShadow(BButton self, CGContextRef context, const CGRect& rect, UIBezierPath outline,
                     UIColor color) {
  const bool pressed = self.highlighted();
  const UIColor shadow = UIColor::colorWithWhite_alpha(pressed ? 0 : 1, innerShadowAlpha);
  CGContextSetShadowWithColor(context, pressed ? pressedShadowOffset : innerShadowOffset,
                              pressed ? pressedShadowBlur : 0, shadow.CGColor());
  CGContextSetFillColorWithColor(context, color.CGColor());
  const UIBezierPath frame = UIBezierPath::bezierPathWithRect(inset(rect, -2 * pressedShadowBlur));
  frame.appendPath(outline);
  CGContextAddPath(context, frame.CGPath());
  CGContextDrawPath(context, kCGPathEOFill);
}

// Lit from above, or, while it is pressed, from below.
void drawBody(BButton self, CGContextRef context, const CGRect& rect, UIColor color) {
  const UIBezierPath outline = rounded(rect, radiusOf(self) - border);
  const bool pressed = self.highlighted();
  CGContextSaveGState(context);
  outline.addClip();
  drawGradient(context, rect, pressed ? darker(color, 0.15f) : lighter(color, 0.1f),
               pressed ? darker(color, 0.05f) : darker(color, 0.1f));
  if (self.enabled()) drawInnerShadow(self, context, rect, outline, color);
  CGContextRestoreGState(context);
}

}  // namespace

void drawRaised(BButton self, CGRect rect, CGContextRef context) {
  const UIColor color = shown(self, self.color());
  CGRect outer = rect;
  outer.size.height -= highlightRoom;
  drawBorder(self, context, outer, color);
  drawBody(self, context, inset(outer, border), color);
}

void drawFlat(BButton self, CGRect rect, CGContextRef context) {
  const UIColor color = self.color();
  const bool pressed = self.highlighted();
  const UIColor fill = shown(self, pressed ? darker(color, 0.06f) : color);
  const UIColor stroke = shown(self, darker(color, pressed ? 0.12f : 0.06f));
  const CGRect outline{{0.5f, 0.5f}, {rect.size.width - 1, rect.size.height - 1}};
  CGContextSaveGState(context);
  CGContextSetFillColorWithColor(context, fill.CGColor());
  CGContextSetStrokeColorWithColor(context, stroke.CGColor());
  CGContextSetLineWidth(context, 1);
  CGContextAddPath(context, rounded(outline, radiusOf(self)).CGPath());
  CGContextDrawPath(context, kCGPathFillStroke);
  CGContextRestoreGState(context);
}

void drawButton(BButton self, CGRect rect) {
  CGContextRef context = UIGraphicsGetCurrentContext();
  if (self.buttonStyle() == BButtonStyleBootstrapV2)
    self.drawBButtonStyleV2InRect_withContext(rect, context);
  else if (self.buttonStyle() == BButtonStyleBootstrapV3)
    self.drawBButtonStyleV3InRect_withContext(rect, context);
}

}  // namespace tilo
