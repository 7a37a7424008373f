// SpringBoard's dock: the panel and its list of icons.
#pragma once

#include "platform/springboard/icon_list_view.hpp"

struct SBDockIconListView : bridge::Face<"SBDockIconListView", SBIconListView> {
  static constexpr bridge::ClassMethod<"SBDockIconListView", "maxIcons", NSUInteger()> maxIcons{};
  static constexpr bridge::ClassMethod<"SBDockIconListView",
                                       "maxVisibleIconRowsInterfaceOrientation:", NSUInteger(NSInteger)>
      maxVisibleIconRowsInterfaceOrientation{};
  MESSAGE Method<"iconsInRowForSpacingCalculation", NSUInteger()> iconsInRowForSpacingCalculation;
};

struct SBDockView : bridge::Face<"SBDockView", UIView> {
  static constexpr bridge::ClassMethod<"SBDockView", "defaultHeight", CGFloat()> defaultHeight{};
};
