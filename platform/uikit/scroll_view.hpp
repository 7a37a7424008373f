// UIScrollView.
#pragma once

#include "platform/uikit/edge_insets.hpp"
#include "platform/uikit/gesture_recognizer.hpp"

// UIScrollViewDecelerationRate: what is left of a velocity after a millisecond.
inline constexpr CGFloat UIScrollViewDecelerationRateNormal = 0.998;
inline constexpr CGFloat UIScrollViewDecelerationRateFast = 0.99;

// Lengths in points.
struct UIScrollView : bridge::Face<"UIScrollView", UIView> {
  MESSAGE Property<"contentOffset", CGPoint> contentOffset;
  MESSAGE Method<"setContentOffset:animated:", void(CGPoint, BOOL)> setContentOffset_animated;
  MESSAGE Property<"contentSize", CGSize> contentSize;
  MESSAGE Property<"contentInset", UIEdgeInsets> contentInset;
  MESSAGE Property<"pagingEnabled", BOOL, "isPagingEnabled"> pagingEnabled;
  MESSAGE Property<"delegate", bridge::Object> delegate;
  MESSAGE Property<"scrollEnabled", BOOL, "isScrollEnabled"> scrollEnabled;
  MESSAGE Property<"bounces", BOOL> bounces;
  MESSAGE Property<"alwaysBounceHorizontal", BOOL> alwaysBounceHorizontal;
  MESSAGE Property<"alwaysBounceVertical", BOOL> alwaysBounceVertical;
  MESSAGE Property<"decelerationRate", CGFloat> decelerationRate;  // per millisecond
  MESSAGE Property<"delaysContentTouches", BOOL> delaysContentTouches;
  MESSAGE Property<"canCancelContentTouches", BOOL> canCancelContentTouches;
  MESSAGE Method<"touchesShouldCancelInContentView:", BOOL(UIView)> touchesShouldCancelInContentView;
  MESSAGE Property<"showsHorizontalScrollIndicator", BOOL> showsHorizontalScrollIndicator;
  MESSAGE Property<"showsVerticalScrollIndicator", BOOL> showsVerticalScrollIndicator;
  MESSAGE Method<"isTracking", BOOL()> isTracking;
  MESSAGE Method<"isDragging", BOOL()> isDragging;
  MESSAGE Method<"isDecelerating", BOOL()> isDecelerating;
  MESSAGE Method<"panGestureRecognizer", UIPanGestureRecognizer()> panGestureRecognizer;
};

// What a scroll view's delegate may implement; it is told only what it responds to. The velocity is in points
// per millisecond; where the view is to come to rest may be changed.
struct UIScrollViewDelegate : bridge::Protocol<"UIScrollViewDelegate"> {
  MESSAGE Method<"scrollViewDidScroll:", void(UIScrollView)> scrollViewDidScroll;
  MESSAGE Method<"scrollViewWillBeginDragging:", void(UIScrollView)> scrollViewWillBeginDragging;
  MESSAGE Method<"scrollViewWillEndDragging:withVelocity:targetContentOffset:",
                 void(UIScrollView, CGPoint, CGPoint*)>
      scrollViewWillEndDragging_withVelocity_targetContentOffset;
  MESSAGE Method<"scrollViewDidEndDragging:willDecelerate:", void(UIScrollView, BOOL)>
      scrollViewDidEndDragging_willDecelerate;
  MESSAGE Method<"scrollViewWillBeginDecelerating:", void(UIScrollView)> scrollViewWillBeginDecelerating;
  MESSAGE Method<"scrollViewDidEndDecelerating:", void(UIScrollView)> scrollViewDidEndDecelerating;
  MESSAGE Method<"scrollViewDidEndScrollingAnimation:", void(UIScrollView)>
      scrollViewDidEndScrollingAnimation;
};
