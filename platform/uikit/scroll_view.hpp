// UIScrollView.
#pragma once

#include "platform/uikit/edge_insets.hpp"
#include "platform/uikit/gesture_recognizer.hpp"

// UIScrollViewDecelerationRate: what is left of a velocity after a millisecond.
inline constexpr CGFloat UIScrollViewDecelerationRateNormal = 0.998;
inline constexpr CGFloat UIScrollViewDecelerationRateFast = 0.99;

// Lengths in points.
struct UIScrollView : bridge::Face<"UIScrollView", UIView> {
  MESSAGE Method<"contentOffset", CGPoint()> contentOffset;
  MESSAGE Method<"setContentOffset:", void(CGPoint)> setContentOffset;
  MESSAGE Method<"setContentOffset:animated:", void(CGPoint, BOOL)> setContentOffset_animated;
  MESSAGE Method<"contentSize", CGSize()> contentSize;
  MESSAGE Method<"setContentSize:", void(CGSize)> setContentSize;
  MESSAGE Method<"contentInset", UIEdgeInsets()> contentInset;
  MESSAGE Method<"setContentInset:", void(UIEdgeInsets)> setContentInset;
  MESSAGE Method<"isPagingEnabled", BOOL()> isPagingEnabled;
  MESSAGE Method<"setPagingEnabled:", void(BOOL)> setPagingEnabled;
  MESSAGE Method<"delegate", bridge::Object()> delegate;
  MESSAGE Method<"setDelegate:", void(bridge::Object)> setDelegate;
  MESSAGE Method<"isScrollEnabled", BOOL()> isScrollEnabled;
  MESSAGE Method<"setScrollEnabled:", void(BOOL)> setScrollEnabled;
  MESSAGE Method<"bounces", BOOL()> bounces;
  MESSAGE Method<"setBounces:", void(BOOL)> setBounces;
  MESSAGE Method<"alwaysBounceHorizontal", BOOL()> alwaysBounceHorizontal;
  MESSAGE Method<"setAlwaysBounceHorizontal:", void(BOOL)> setAlwaysBounceHorizontal;
  MESSAGE Method<"alwaysBounceVertical", BOOL()> alwaysBounceVertical;
  MESSAGE Method<"setAlwaysBounceVertical:", void(BOOL)> setAlwaysBounceVertical;
  MESSAGE Method<"decelerationRate", CGFloat()> decelerationRate;  // per millisecond
  MESSAGE Method<"setDecelerationRate:", void(CGFloat)> setDecelerationRate;
  MESSAGE Method<"delaysContentTouches", BOOL()> delaysContentTouches;
  MESSAGE Method<"setDelaysContentTouches:", void(BOOL)> setDelaysContentTouches;
  MESSAGE Method<"canCancelContentTouches", BOOL()> canCancelContentTouches;
  MESSAGE Method<"setCanCancelContentTouches:", void(BOOL)> setCanCancelContentTouches;
  MESSAGE Method<"touchesShouldCancelInContentView:", BOOL(UIView)> touchesShouldCancelInContentView;
  MESSAGE Method<"showsHorizontalScrollIndicator", BOOL()> showsHorizontalScrollIndicator;
  MESSAGE Method<"setShowsHorizontalScrollIndicator:", void(BOOL)> setShowsHorizontalScrollIndicator;
  MESSAGE Method<"showsVerticalScrollIndicator", BOOL()> showsVerticalScrollIndicator;
  MESSAGE Method<"setShowsVerticalScrollIndicator:", void(BOOL)> setShowsVerticalScrollIndicator;
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
