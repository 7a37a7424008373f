// What icon lists answer when they are asked for rows, columns, padding and insets. Home-screen pages follow
// the settings; folders and the dock keep SpringBoard's own.
#pragma once

#include "platform/springboard/icon_list_view.hpp"

namespace tilo::hooks {

// SpringBoard's own side inset, as of the last call of `sideIconInset`.
extern CGFloat origS;

NSUInteger iconRowsForSpacingCalculation(SBIconListView self);
NSUInteger iconRowsForCurrentOrientation(SBIconListView self);
NSUInteger iconColumnsForCurrentOrientation(SBIconListView self);
NSUInteger iconRowsForInterfaceOrientation(Class self, NSInteger orientation);
NSUInteger iconColumnsForInterfaceOrientation(Class self, NSInteger orientation);
CGFloat verticalIconPadding(SBIconListView self);
CGFloat horizontalIconPadding(SBIconListView self);
NSUInteger folderIconRowsForInterfaceOrientation(Class self, NSInteger orientation);
CGFloat sideIconInset(SBRootIconListView self);
CGFloat topIconInset(SBRootIconListView self);

}  // namespace tilo::hooks
