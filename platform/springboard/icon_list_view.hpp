// SpringBoard's icon lists: a home-screen page, a folder's page, the dock.
#pragma once

#include "platform/springboard/icon.hpp"
#include "platform/uikit/view.hpp"

struct SBIconListView : bridge::Face<"SBIconListView", UIView> {
  static constexpr bridge::ClassMethod<"SBIconListView",
                                       "iconRowsForInterfaceOrientation:", NSUInteger(NSInteger)>
      iconRowsForInterfaceOrientation{};
  static constexpr bridge::ClassMethod<"SBIconListView",
                                       "iconColumnsForInterfaceOrientation:", NSUInteger(NSInteger)>
      iconColumnsForInterfaceOrientation{};
  MESSAGE Method<"iconRowsForSpacingCalculation", NSUInteger()> iconRowsForSpacingCalculation;
  MESSAGE Method<"iconRowsForCurrentOrientation", NSUInteger()> iconRowsForCurrentOrientation;
  MESSAGE Method<"iconColumnsForCurrentOrientation", NSUInteger()> iconColumnsForCurrentOrientation;
  MESSAGE Method<"verticalIconPadding", CGFloat()> verticalIconPadding;
  MESSAGE Method<"horizontalIconPadding", CGFloat()> horizontalIconPadding;
  MESSAGE Method<"sideIconInset", CGFloat()> sideIconInset;
  MESSAGE Method<"topIconInset", CGFloat()> topIconInset;
  MESSAGE Method<"icons", NSArray()> icons;
  MESSAGE Method<"viewForIcon:", SBIconView(SBIcon)> viewForIcon;
  MESSAGE Method<"setIconsNeedLayout", void()> setIconsNeedLayout;
  // Before system version 11.0. Duration in seconds.
  MESSAGE OptionalMethod<"layoutIconsIfNeeded:domino:", void(double, BOOL)> layoutIconsIfNeeded_domino;
  // From system version 11.0 on.
  MESSAGE OptionalMethod<"layoutIconsIfNeeded:animationType:", void(double, NSInteger)>
      layoutIconsIfNeeded_animationType;
};

struct SBRootIconListView : bridge::Face<"SBRootIconListView", SBIconListView> {};

struct SBFolderIconListView : bridge::Face<"SBFolderIconListView", SBIconListView> {};
