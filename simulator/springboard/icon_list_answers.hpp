// What SpringBoard's icon lists answer when nobody replaces anything. A class answers for the lists that are
// of it, whether it has the method itself or inherits it.
#pragma once

#include "platform/springboard/dock.hpp"
#include "simulator/springboard/stock.hpp"

namespace sim::springboard {

// Which of the three kinds of lists it is, by its class.
ListKind kindOf(SBIconListView list);

namespace list {

NSUInteger rowsForOrientation(Class self, NSInteger orientation);
NSUInteger columnsForOrientation(Class self, NSInteger orientation);
NSUInteger mostIcons(Class self);
NSUInteger rows(SBIconListView self);
NSUInteger columns(SBIconListView self);
CGFloat verticalPadding(SBIconListView self);
CGFloat horizontalPadding(SBIconListView self);
CGFloat sideInset(SBIconListView self);
CGFloat topInset(SBIconListView self);
NSUInteger iconsInRow(SBIconListView self);
SBIcon iconAtPoint(SBIconListView self, CGPoint point, NSUInteger* index, int* proposedOrder, SBIcon);

}  // namespace list
}  // namespace sim::springboard
