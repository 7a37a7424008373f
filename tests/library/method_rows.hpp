// The rows of the library's method table, as they have to be.
#pragma once

#include <iterator>
#include <string>

#include "bridge/runtime.hpp"

namespace test {

struct Row {
  const char* className;
  const char* selector;
  bool ofClass = false;
  const char* addedTypes = nullptr;  // null for a replacement

  std::string name() const {
    return std::string(ofClass ? "+" : "-") + "[" + className + " " + selector + "]";
  }
  Class owner() const {
    Class cls = objc_getClass(className);
    return ofClass ? bridge::classOf(reinterpret_cast<id>(cls)) : cls;
  }
  SEL sel() const { return sel_registerName(selector); }
};

inline constexpr Row table[] = {
    {"SBIconImageView", "layoutSubviews"},
    {"SBIconImageView", "cornerRadius", true},
    {"SBIconImageView", "showsSquareCorners"},
    {"SBIconListView", "iconRowsForSpacingCalculation"},
    {"SBIconListView", "iconRowsForCurrentOrientation"},
    {"SBIconListView", "iconColumnsForCurrentOrientation"},
    {"SBIconListView", "iconRowsForInterfaceOrientation:", true},
    {"SBIconListView", "iconColumnsForInterfaceOrientation:", true},
    {"SBIconListView", "verticalIconPadding"},
    {"SBIconListView", "horizontalIconPadding"},
    {"SBFolderIconListView", "iconRowsForInterfaceOrientation:", true},
    {"SBRootIconListView", "sideIconInset"},
    {"SBRootIconListView", "topIconInset"},
    {"SBIconLabelImageParameters", "shadowColor"},
    {"SBIconLabelImageParameters", "textColor"},
    {"SBUIController", "activateApplicationAnimated:"},
    {"SBIconListPageControl", "_setIndicatorImage:toEnabled:index:"},
    {"SBIconListPageControl", "_setIndicatorImage:toEnabled:"},
    {"SBIconLabelImage", "_rectWithDrawing:inRect:fromParameters:", true},
    {"SBIconScrollView", "listCellPreferencesUpdated:withUserInfo:", false, "v@:@@"},
    {"SBIconScrollView", "preferencesUpdated:withUserInfo:", false, "v@:@@"},
    {"SBIconScrollView", "layout:", false, "v@:@"},
    {"SBIconScrollView", "setContentOffset:"},
    {"SBIconScrollView", "dealloc"},
    {"SBIconScrollView", "swipe:", false, "v@:@"},
    {"SBIconScrollView", "init"},
    {"SBIconScrollView", "touchesEnded:withEvent:"},
    {"SBIconScrollView", "touchesMoved:withEvent:"},
    {"SBIconScrollView", "swipeGesture", false, "@@:"},
    {"SBIconScrollView", "setSwipeGesture:", false, "v@:@"},
    {"SBIconScrollView", "tapGesture", false, "@@:"},
    {"SBIconScrollView", "setTapGesture:", false, "v@:@"},
    {"SBDockIconListView", "isDockIconsEnabled", true, "B@:"},
    {"SBDockIconListView", "numberOfDockIcons", true, "i@:"},
    {"SBDockIconListView", "layoutSubviews"},
    {"SBDockIconListView", "effectiveSpacing"},
    {"SBDockIconListView", "iconAtPoint:index:proposedOrder:grabbedIcon:"},
    {"SBDockIconListView", "iconsInRowForSpacingCalculation"},
    {"SBDockIconListView", "maxIcons", true},
    {"SBDockIconListView", "iconRowsForInterfaceOrientation:", true},
    {"SBDockIconListView", "maxVisibleIconRowsInterfaceOrientation:", true},
    {"SBIconController", "init"},
    {"SBIconController", "viewDidAppear:"},
    {"SBIconController", "didRotateFromInterfaceOrientation:"},
    {"SBDockView", "defaultHeight", true},
    {"SBDockView", "setBackgroundAlpha:"},
};

static_assert(std::size(table) == 46);

}  // namespace test
