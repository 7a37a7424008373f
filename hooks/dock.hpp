// The dock: how many icons it holds, and whether it is there at all. These settings act without the master
// switch.
#pragma once

#include "platform/springboard/dock.hpp"

namespace tilo::hooks {

// Added to SpringBoard's class.
BOOL isDockIconsEnabled(Class self);
int numberOfDockIcons(Class self);

void dockLayoutSubviews(SBDockIconListView self);
CGFloat effectiveSpacing(SBDockIconListView self);
SBIcon iconAtPoint(SBDockIconListView self, CGPoint point, NSUInteger* index, int* proposedOrder,
                   SBIcon grabbed);
NSUInteger iconsInRowForSpacingCalculation(SBDockIconListView self);
NSUInteger maxIcons(Class self);
NSUInteger dockIconRowsForInterfaceOrientation(Class self, NSInteger orientation);
NSUInteger maxVisibleIconRows(Class self, NSInteger orientation);

CGFloat defaultHeight(Class self);
void setBackgroundAlpha(SBDockView self, CGFloat alpha);

}  // namespace tilo::hooks
