// CALayer.
#pragma once

#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/object.hpp"

// Lengths in points.
struct CALayer : bridge::Face<"CALayer", NSObject> {
  MESSAGE Method<"bounds", CGRect()> bounds;
  MESSAGE Method<"setBounds:", void(CGRect)> setBounds;
  MESSAGE Method<"position", CGPoint()> position;
  MESSAGE Method<"setPosition:", void(CGPoint)> setPosition;
  MESSAGE Method<"anchorPoint", CGPoint()> anchorPoint;
  MESSAGE Method<"setAnchorPoint:", void(CGPoint)> setAnchorPoint;
  MESSAGE Method<"frame", CGRect()> frame;
  MESSAGE Method<"setFrame:", void(CGRect)> setFrame;
  MESSAGE Method<"cornerRadius", CGFloat()> cornerRadius;
  MESSAGE Method<"setCornerRadius:", void(CGFloat)> setCornerRadius;
  MESSAGE Method<"opacity", float()> opacity;
  MESSAGE Method<"setOpacity:", void(float)> setOpacity;
  MESSAGE Method<"isHidden", BOOL()> isHidden;
  MESSAGE Method<"setHidden:", void(BOOL)> setHidden;
  MESSAGE Method<"masksToBounds", BOOL()> masksToBounds;
  MESSAGE Method<"setMasksToBounds:", void(BOOL)> setMasksToBounds;
  MESSAGE Method<"removeAllAnimations", void()> removeAllAnimations;
};
