// The methods of UIView by subject; view.cpp makes the class of them.
#pragma once

#include "simulator/uikit/views/view.hpp"

namespace sim::uikit::view {

// view_geometry.cpp
CGRect frame(UIView self);
void setFrame(UIView self, CGRect frame);
CGRect bounds(UIView self);
void setBounds(UIView self, CGRect bounds);
CGPoint center(UIView self);
void setCenter(UIView self, CGPoint center);
CGAffineTransform transform(UIView self);
void setTransform(UIView self, CGAffineTransform transform);
CGSize sizeThatFits(UIView self, CGSize size);
void sizeToFit(UIView self);
CGPoint convertPointTo(UIView self, CGPoint point, UIView view);
CGPoint convertPointFrom(UIView self, CGPoint point, UIView view);
CGRect convertRectTo(UIView self, CGRect rect, UIView view);
CGRect convertRectFrom(UIView self, CGRect rect, UIView view);

// view_tree.cpp
UIView superview(UIView self);
NSArray subviews(UIView self);
UIWindow window(UIView self);
void addSubview(UIView self, UIView view);
void insertSubview(UIView self, UIView view, NSInteger index);
void bringSubviewToFront(UIView self, UIView view);
void sendSubviewToBack(UIView self, UIView view);
void removeFromSuperview(UIView self);
BOOL isDescendantOfView(UIView self, UIView view);
UIView viewWithTag(UIView self, NSInteger tag);

// view_layout.cpp
void setNeedsLayout(UIView self);
void layoutIfNeeded(UIView self);

// view_touches.cpp
UIView hitTest(UIView self, CGPoint point, UIEvent event);
BOOL pointInside(UIView self, CGPoint point, UIEvent event);

// view_gestures.cpp
NSArray gestureRecognizers(UIView self);
void addGestureRecognizer(UIView self, UIGestureRecognizer recognizer);
void removeGestureRecognizer(UIView self, UIGestureRecognizer recognizer);
BOOL gestureRecognizerShouldBegin(UIView self, UIGestureRecognizer recognizer);

// view_animation.cpp
void animate(Class, double duration, bridge::BlockRef<void()> animations);
void animateThen(Class, double duration, bridge::BlockRef<void()> animations,
                 bridge::BlockRef<void(BOOL)> completion);
void animateWithOptions(Class, double duration, double delay, NSUInteger options,
                        bridge::BlockRef<void()> animations, bridge::BlockRef<void(BOOL)> completion);
void animateWithSpring(Class, double duration, double delay, CGFloat damping, CGFloat velocity,
                       NSUInteger options, bridge::BlockRef<void()> animations,
                       bridge::BlockRef<void(BOOL)> completion);
void performWithoutAnimation(Class, bridge::BlockRef<void()> actions);
void setAnimationsEnabled(Class, BOOL enabled);
BOOL areAnimationsEnabled(Class);

}  // namespace sim::uikit::view
