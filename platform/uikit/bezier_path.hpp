// UIBezierPath.
#pragma once

#include "platform/coregraphics/context.hpp"
#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/object.hpp"

// CGLineCap
enum : int { kCGLineCapButt = 0, kCGLineCapRound, kCGLineCapSquare };

// Lengths in points, angles in radians from the x axis towards the y axis, that is clockwise on the screen.
struct UIBezierPath : bridge::Face<"UIBezierPath", NSObject> {
  static constexpr bridge::ClassMethod<"UIBezierPath", "bezierPath", UIBezierPath()> bezierPath{};
  static constexpr bridge::ClassMethod<"UIBezierPath", "bezierPathWithRect:", UIBezierPath(CGRect)>
      bezierPathWithRect{};
  static constexpr bridge::ClassMethod<"UIBezierPath", "bezierPathWithOvalInRect:", UIBezierPath(CGRect)>
      bezierPathWithOvalInRect{};
  static constexpr bridge::ClassMethod<"UIBezierPath", "bezierPathWithRoundedRect:cornerRadius:",
                                       UIBezierPath(CGRect, CGFloat)>
      bezierPathWithRoundedRect_cornerRadius{};
  MESSAGE Method<"CGPath", CGPathRef()> CGPath;  // belongs to the path, good until it changes
  MESSAGE Method<"moveToPoint:", void(CGPoint)> moveToPoint;
  MESSAGE Method<"addLineToPoint:", void(CGPoint)> addLineToPoint;
  MESSAGE Method<"addArcWithCenter:radius:startAngle:endAngle:clockwise:",
                 void(CGPoint, CGFloat, CGFloat, CGFloat, BOOL)>
      addArcWithCenter_radius_startAngle_endAngle_clockwise;
  MESSAGE Method<"appendPath:", void(UIBezierPath)> appendPath;
  MESSAGE Method<"closePath", void()> closePath;
  MESSAGE Method<"bounds", CGRect()> bounds;
  MESSAGE Property<"lineWidth", CGFloat> lineWidth;
  MESSAGE Method<"setLineCapStyle:", void(int)> setLineCapStyle;
  MESSAGE Method<"setUsesEvenOddFillRule:", void(BOOL)> setUsesEvenOddFillRule;
  MESSAGE Method<"fill", void()> fill;
  MESSAGE Method<"stroke", void()> stroke;
  MESSAGE Method<"addClip", void()> addClip;
};
