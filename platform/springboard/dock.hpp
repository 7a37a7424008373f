// SpringBoard's dock: the panel and its list of icons.
#pragma once

#include "platform/springboard/icon_list_view.hpp"

// Lengths in points.
struct SBDockIconListView : bridge::Face<"SBDockIconListView", SBRootIconListView> {
  static constexpr bridge::ClassMethod<"SBDockIconListView", "maxIcons", NSUInteger()> maxIcons{};
  static constexpr bridge::ClassMethod<"SBDockIconListView",
                                       "maxVisibleIconRowsInterfaceOrientation:", NSUInteger(NSInteger)>
      maxVisibleIconRowsInterfaceOrientation{};
  // The library's own: whether the number of dock icons is the user's, and that number.
  static constexpr bridge::ClassMethod<"SBDockIconListView", "isDockIconsEnabled", BOOL()>
      isDockIconsEnabled{};
  static constexpr bridge::ClassMethod<"SBDockIconListView", "numberOfDockIcons", int()> numberOfDockIcons{};
  MESSAGE Method<"iconsInRowForSpacingCalculation", NSUInteger()> iconsInRowForSpacingCalculation;
  MESSAGE OptionalMethod<"spacing", CGFloat()> spacing;  // from 11 on, as the next
  MESSAGE OptionalMethod<"setSpacing:", void(CGFloat)> setSpacing;
  MESSAGE OptionalMethod<"effectiveSpacing", CGFloat()> effectiveSpacing;
  // The index and the proposed order are results; either may be null.
  MESSAGE OptionalMethod<"iconAtPoint:index:proposedOrder:grabbedIcon:",
                         SBIcon(CGPoint, NSUInteger*, int*, SBIcon)>
      iconAtPoint_index_proposedOrder_grabbedIcon;
};

struct SBDockView : bridge::Face<"SBDockView", UIView> {
  static constexpr bridge::ClassMethod<"SBDockView", "defaultHeight", CGFloat()> defaultHeight{};
  MESSAGE Method<"setBackgroundAlpha:", void(CGFloat)> setBackgroundAlpha;
};
