// UIView.
#pragma once

#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/array.hpp"
#include "platform/uikit/event.hpp"
#include "platform/uikit/responder.hpp"

struct CALayer;
struct UIColor;
struct UIGestureRecognizer;
struct UIWindow;

// UIViewAutoresizing
enum : NSUInteger {
  UIViewAutoresizingNone = 0,
  UIViewAutoresizingFlexibleLeftMargin = 1,
  UIViewAutoresizingFlexibleWidth = 2,
  UIViewAutoresizingFlexibleRightMargin = 4,
  UIViewAutoresizingFlexibleTopMargin = 8,
  UIViewAutoresizingFlexibleHeight = 16,
  UIViewAutoresizingFlexibleBottomMargin = 32
};

// UIViewContentMode
enum : NSInteger {
  UIViewContentModeScaleToFill = 0,
  UIViewContentModeScaleAspectFit,
  UIViewContentModeScaleAspectFill,
  UIViewContentModeRedraw,
  UIViewContentModeCenter,
  UIViewContentModeTop,
  UIViewContentModeBottom,
  UIViewContentModeLeft,
  UIViewContentModeRight,
  UIViewContentModeTopLeft,
  UIViewContentModeTopRight,
  UIViewContentModeBottomLeft,
  UIViewContentModeBottomRight
};

// UIViewAnimationOptions
enum : NSUInteger {
  UIViewAnimationOptionLayoutSubviews = 1,
  UIViewAnimationOptionAllowUserInteraction = 2,
  UIViewAnimationOptionBeginFromCurrentState = 4,
  UIViewAnimationOptionRepeat = 8,
  UIViewAnimationOptionAutoreverse = 16,
  UIViewAnimationOptionOverrideInheritedDuration = 32,
  UIViewAnimationOptionOverrideInheritedCurve = 64,
  UIViewAnimationOptionCurveEaseInOut = 0,
  UIViewAnimationOptionCurveEaseIn = 1 << 16,
  UIViewAnimationOptionCurveEaseOut = 2 << 16,
  UIViewAnimationOptionCurveLinear = 3 << 16
};

// Lengths in points, times in seconds.
struct UIView : bridge::Face<"UIView", UIResponder> {
  MESSAGE Method<"initWithFrame:", UIView(CGRect)> initWithFrame;

  // Geometry.
  MESSAGE Property<"frame", CGRect> frame;
  MESSAGE Property<"bounds", CGRect> bounds;
  MESSAGE Property<"center", CGPoint> center;
  MESSAGE Property<"transform", CGAffineTransform> transform;
  MESSAGE Property<"autoresizingMask", NSUInteger> autoresizingMask;
  MESSAGE Property<"autoresizesSubviews", BOOL> autoresizesSubviews;
  MESSAGE Method<"sizeThatFits:", CGSize(CGSize)> sizeThatFits;
  MESSAGE Method<"sizeToFit", void()> sizeToFit;

  // Appearance.
  MESSAGE Property<"alpha", CGFloat> alpha;
  MESSAGE Property<"hidden", BOOL, "isHidden"> hidden;
  MESSAGE Property<"backgroundColor", UIColor> backgroundColor;
  MESSAGE Property<"clipsToBounds", BOOL> clipsToBounds;
  MESSAGE Property<"opaque", BOOL, "isOpaque"> opaque;
  MESSAGE Property<"tintColor", UIColor> tintColor;
  MESSAGE Property<"contentMode", NSInteger> contentMode;
  MESSAGE Method<"layer", CALayer()> layer;
  MESSAGE Method<"setNeedsDisplay", void()> setNeedsDisplay;
  MESSAGE Method<"drawRect:", void(CGRect)> drawRect;

  // The tree. The last subview is in front.
  MESSAGE Method<"superview", UIView()> superview;
  MESSAGE Method<"subviews", NSArray()> subviews;
  MESSAGE Method<"window", UIWindow()> window;
  MESSAGE Method<"addSubview:", void(UIView)> addSubview;
  MESSAGE Method<"insertSubview:atIndex:", void(UIView, NSInteger)> insertSubview_atIndex;
  MESSAGE Method<"bringSubviewToFront:", void(UIView)> bringSubviewToFront;
  MESSAGE Method<"sendSubviewToBack:", void(UIView)> sendSubviewToBack;
  MESSAGE Method<"removeFromSuperview", void()> removeFromSuperview;
  MESSAGE Method<"isDescendantOfView:", BOOL(UIView)> isDescendantOfView;
  MESSAGE Property<"tag", NSInteger> tag;
  MESSAGE Method<"viewWithTag:", UIView(NSInteger)> viewWithTag;
  // The first responder among the view and those below it gives up; with YES even against its will.
  MESSAGE Method<"endEditing:", BOOL(BOOL)> endEditing;
  MESSAGE Method<"willMoveToSuperview:", void(UIView)> willMoveToSuperview;
  MESSAGE Method<"didMoveToSuperview", void()> didMoveToSuperview;
  MESSAGE Method<"willMoveToWindow:", void(UIWindow)> willMoveToWindow;
  MESSAGE Method<"didMoveToWindow", void()> didMoveToWindow;
  MESSAGE Method<"didAddSubview:", void(UIView)> didAddSubview;
  MESSAGE Method<"willRemoveSubview:", void(UIView)> willRemoveSubview;

  // Layout.
  MESSAGE Method<"setNeedsLayout", void()> setNeedsLayout;
  MESSAGE Method<"layoutIfNeeded", void()> layoutIfNeeded;
  MESSAGE Method<"layoutSubviews", void()> layoutSubviews;

  // Coordinates. No view stands for the window.
  MESSAGE Method<"convertPoint:toView:", CGPoint(CGPoint, UIView)> convertPoint_toView;
  MESSAGE Method<"convertPoint:fromView:", CGPoint(CGPoint, UIView)> convertPoint_fromView;
  MESSAGE Method<"convertRect:toView:", CGRect(CGRect, UIView)> convertRect_toView;
  MESSAGE Method<"convertRect:fromView:", CGRect(CGRect, UIView)> convertRect_fromView;

  // Touches.
  MESSAGE Property<"userInteractionEnabled", BOOL, "isUserInteractionEnabled"> userInteractionEnabled;
  MESSAGE Method<"hitTest:withEvent:", UIView(CGPoint, UIEvent)> hitTest_withEvent;
  MESSAGE Method<"pointInside:withEvent:", BOOL(CGPoint, UIEvent)> pointInside_withEvent;
  MESSAGE Property<"multipleTouchEnabled", BOOL, "isMultipleTouchEnabled"> multipleTouchEnabled;
  MESSAGE Method<"gestureRecognizers", NSArray()> gestureRecognizers;
  MESSAGE Method<"addGestureRecognizer:", void(UIGestureRecognizer)> addGestureRecognizer;
  MESSAGE Method<"removeGestureRecognizer:", void(UIGestureRecognizer)> removeGestureRecognizer;
  MESSAGE Method<"gestureRecognizerShouldBegin:", BOOL(UIGestureRecognizer)> gestureRecognizerShouldBegin;

  // Animation.
  static constexpr bridge::ClassMethod<"UIView", "animateWithDuration:animations:",
                                       void(double, bridge::BlockRef<void()>)>
      animateWithDuration_animations{};
  static constexpr bridge::ClassMethod<"UIView", "animateWithDuration:animations:completion:",
                                       void(double, bridge::BlockRef<void()>, bridge::BlockRef<void(BOOL)>)>
      animateWithDuration_animations_completion{};
  static constexpr bridge::ClassMethod<"UIView", "animateWithDuration:delay:options:animations:completion:",
                                       void(double, double, NSUInteger, bridge::BlockRef<void()>,
                                            bridge::BlockRef<void(BOOL)>)>
      animateWithDuration_delay_options_animations_completion{};
  // Duration, delay, damping ratio, initial velocity (whole distances per second), options.
  static constexpr bridge::ClassMethod<
      "UIView",
      "animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:animations:completion:",
      void(double, double, CGFloat, CGFloat, NSUInteger, bridge::BlockRef<void()>,
           bridge::BlockRef<void(BOOL)>)>
      animateWithDuration_delay_usingSpringWithDamping_initialSpringVelocity_options_animations_completion{};
  static constexpr bridge::ClassMethod<"UIView", "performWithoutAnimation:", void(bridge::BlockRef<void()>)>
      performWithoutAnimation{};
  static constexpr bridge::ClassMethod<"UIView", "setAnimationsEnabled:", void(BOOL)> setAnimationsEnabled{};
  static constexpr bridge::ClassMethod<"UIView", "areAnimationsEnabled", BOOL()> areAnimationsEnabled{};
};
