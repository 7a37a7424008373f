// UIView.
#pragma once

#include <functional>
#include <vector>

#include "bridge/strong.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "platform/uikit/layer.hpp"
#include "platform/uikit/view_controller.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/quartz/layer.hpp"

namespace sim::uikit {

/** What a view is besides its layer, which keeps its geometry and its looks. */
struct ViewState {
  bridge::Strong<CALayer> layer;
  UIView superview;                              // not retained
  std::vector<bridge::Strong<UIView>> subviews;  // the last one is in front
  UIViewController controller;                   // whose view it is; not retained
  bridge::Strong<UIColor> backgroundColor;
  bridge::Strong<UIColor> tintColor;  // none: the superview's
  BOOL opaque = YES;
  NSUInteger autoresizingMask = UIViewAutoresizingNone;
  BOOL autoresizesSubviews = YES;
  BOOL userInteractionEnabled = YES;
  BOOL multipleTouchEnabled = NO;
  std::vector<bridge::Strong<UIGestureRecognizer>> gestureRecognizers;  // in the order of their coming
  NSInteger contentMode = UIViewContentModeScaleToFill;
  NSInteger tag = 0;
  bool needsLayout = true;
  bool layoutDueBelow = false;  // true as long as any view below needs its layout, and perhaps longer

  ViewState() = default;
  ~ViewState();
  ViewState(const ViewState&) = delete;
  ViewState& operator=(const ViewState&) = delete;
};

ViewState& stateOf(UIView view);
/** The view's own layer; made with the first use. */
CALayer layerObjectOf(UIView view);
Layer& layerOf(UIView view);
/** The window that the view is in, or is. */
UIWindow windowOf(UIView view);
/** Calls `visit` with the view and everything below it, back to front; subviews that visiting adds are not
 * met. */
void forEachInTree(UIView view, const std::function<void(UIView)>& visit);

/** Lets the view's parts follow bounds that have changed. */
void boundsChanged(UIView view, const CGRect& old);
/** Where autoresizing puts a frame when its superview's bounds change their size (points). */
CGRect autoresized(const CGRect& frame, NSUInteger mask, CGSize oldSize, CGSize newSize);

/** To be said of a view when one below it needs its layout. */
void expectLayoutBelow(UIView view);
/** Lays out what is due in the tree below the view, and the view itself. Answers whether anything was. */
bool layoutTree(UIView view);

}  // namespace sim::uikit
