// UIScrollView.
#pragma once

#include "platform/uikit/edge_insets.hpp"
#include "platform/uikit/view.hpp"

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
};
