// Drawing into the context that drawRect: draws into: paths, colours, shadows and gradients.
#pragma once

#include "platform/coregraphics/color.hpp"

struct CGContext;
struct CGPath;
struct CGGradient;
struct CGColorSpace;
using CGContextRef = CGContext*;
using CGPathRef = const CGPath*;
using CGGradientRef = CGGradient*;
using CGColorSpaceRef = CGColorSpace*;

template <>
struct bridge::Encoding<CGContext> {
  static constexpr Name text = "{CGContext=}";
};
template <>
struct bridge::Encoding<const CGPath*> {
  static constexpr Name text = "^{CGPath=}";
};

// CGPathDrawingMode
enum : int { kCGPathFill = 0, kCGPathEOFill, kCGPathStroke, kCGPathFillStroke, kCGPathEOFillStroke };

// CGGradientDrawingOptions
enum : unsigned { kCGGradientDrawsBeforeStartLocation = 1, kCGGradientDrawsAfterEndLocation = 2 };

// Lengths in points, angles in radians. Create gives a reference away, which the matching Release takes back.
extern "C" {
CGContextRef UIGraphicsGetCurrentContext();
void UIGraphicsPushContext(CGContextRef context);
void UIGraphicsPopContext();
void CGContextSaveGState(CGContextRef context);
void CGContextRestoreGState(CGContextRef context);
void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color);
void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color);
void CGContextSetLineWidth(CGContextRef context, CGFloat width);
void CGContextSetShadowWithColor(CGContextRef context, CGSize offset, CGFloat blur, CGColorRef color);
void CGContextBeginPath(CGContextRef context);
void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y);
void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y);
void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat start, CGFloat end,
                     int clockwise);
void CGContextAddRect(CGContextRef context, CGRect rect);
void CGContextAddPath(CGContextRef context, CGPathRef path);
void CGContextClosePath(CGContextRef context);
void CGContextDrawPath(CGContextRef context, int mode);
void CGContextFillRect(CGContextRef context, CGRect rect);
void CGContextFillEllipseInRect(CGContextRef context, CGRect rect);
void CGContextStrokeEllipseInRect(CGContextRef context, CGRect rect);
void CGContextClip(CGContextRef context);
void CGContextEOClip(CGContextRef context);
CGColorSpaceRef CGColorSpaceCreateDeviceRGB();
void CGColorSpaceRelease(CGColorSpaceRef space);
// Four components a stop; places from 0 to 1.
CGGradientRef CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat* components,
                                                  const CGFloat* locations, size_t count);
void CGGradientRelease(CGGradientRef gradient);
void CGContextDrawLinearGradient(CGContextRef context, CGGradientRef gradient, CGPoint start, CGPoint end,
                                 unsigned options);
void CGContextDrawRadialGradient(CGContextRef context, CGGradientRef gradient, CGPoint startCenter,
                                 CGFloat startRadius, CGPoint endCenter, CGFloat endRadius, unsigned options);
}
