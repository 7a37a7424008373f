// CALayer.
#pragma once

#include "platform/coregraphics/color.hpp"
#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/object.hpp"

// Lengths in points.
struct CALayer : bridge::Face<"CALayer", NSObject> {
  MESSAGE Property<"bounds", CGRect> bounds;
  MESSAGE Property<"position", CGPoint> position;
  MESSAGE Property<"anchorPoint", CGPoint> anchorPoint;
  MESSAGE Property<"frame", CGRect> frame;
  MESSAGE Property<"cornerRadius", CGFloat> cornerRadius;
  MESSAGE Property<"opacity", float> opacity;
  MESSAGE Property<"hidden", BOOL, "isHidden"> hidden;
  MESSAGE Property<"masksToBounds", BOOL> masksToBounds;
  MESSAGE Property<"shadowColor", CGColorRef> shadowColor;
  MESSAGE Property<"shadowOpacity", float> shadowOpacity;
  MESSAGE Property<"shadowRadius", CGFloat> shadowRadius;
  MESSAGE Property<"shadowOffset", CGSize> shadowOffset;
  MESSAGE Property<"shouldRasterize", BOOL> shouldRasterize;
  MESSAGE Property<"rasterizationScale", CGFloat> rasterizationScale;  // pixels per point
  MESSAGE Method<"removeAllAnimations", void()> removeAllAnimations;
};
