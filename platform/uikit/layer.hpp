// CALayer.
#pragma once

#include "platform/coregraphics/color.hpp"
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
  MESSAGE Method<"shadowColor", CGColorRef()> shadowColor;
  MESSAGE Method<"setShadowColor:", void(CGColorRef)> setShadowColor;
  MESSAGE Method<"shadowOpacity", float()> shadowOpacity;
  MESSAGE Method<"setShadowOpacity:", void(float)> setShadowOpacity;
  MESSAGE Method<"shadowRadius", CGFloat()> shadowRadius;
  MESSAGE Method<"setShadowRadius:", void(CGFloat)> setShadowRadius;
  MESSAGE Method<"shadowOffset", CGSize()> shadowOffset;
  MESSAGE Method<"setShadowOffset:", void(CGSize)> setShadowOffset;
  MESSAGE Method<"shouldRasterize", BOOL()> shouldRasterize;
  MESSAGE Method<"setShouldRasterize:", void(BOOL)> setShouldRasterize;
  MESSAGE Method<"rasterizationScale", CGFloat()> rasterizationScale;  // pixels per point
  MESSAGE Method<"setRasterizationScale:", void(CGFloat)> setRasterizationScale;
  MESSAGE Method<"removeAllAnimations", void()> removeAllAnimations;
};
