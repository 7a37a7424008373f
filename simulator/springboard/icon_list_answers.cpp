// SpringBoard's own answers.
#include "simulator/springboard/icon_list_answers.hpp"

#include <algorithm>

#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/springboard/orientation.hpp"

namespace sim::springboard {
namespace {

ListKind kindOfClass(Class list) {
  for (Class cls = list; cls; cls = class_getSuperclass(cls)) {
    if (cls == bridge::classNamed<SBDockIconListView>()) return ListKind::dock;
    if (cls == bridge::classNamed<SBFolderIconListView>()) return ListKind::folder;
  }
  return ListKind::root;
}

Grid currentGrid(SBIconListView self) { return stockGrid(kindOf(self), currentOrientation()); }

}  // namespace

ListKind kindOf(SBIconListView list) { return kindOfClass(bridge::classOf(list.raw)); }

namespace list {

NSUInteger rowsForOrientation(Class self, NSInteger orientation) {
  return static_cast<NSUInteger>(stockGrid(kindOfClass(self), orientation).rows);
}

NSUInteger columnsForOrientation(Class self, NSInteger orientation) {
  return static_cast<NSUInteger>(stockGrid(kindOfClass(self), orientation).columns);
}

NSUInteger mostIcons(Class self) {
  if (kindOfClass(self) == ListKind::dock)
    return static_cast<NSUInteger>(stockDock(UIInterfaceOrientationPortrait).maximum);
  const Grid grid = stockGrid(kindOfClass(self), UIInterfaceOrientationPortrait);
  return static_cast<NSUInteger>(grid.rows * grid.columns);
}

// A list's own counts do not go through its class.
NSUInteger rows(SBIconListView self) { return static_cast<NSUInteger>(currentGrid(self).rows); }
NSUInteger columns(SBIconListView self) { return static_cast<NSUInteger>(currentGrid(self).columns); }
CGFloat verticalPadding(SBIconListView self) { return currentGrid(self).verticalPadding; }
CGFloat horizontalPadding(SBIconListView self) { return currentGrid(self).horizontalPadding; }
CGFloat sideInset(SBIconListView self) { return currentGrid(self).sideInset; }
CGFloat topInset(SBIconListView self) { return currentGrid(self).topInset; }

NSUInteger iconsInRow(SBIconListView self) {
  if (kindOf(self) != ListKind::dock) return columns(self);
  // A floating dock, which holds many icons, is spread for those that it has.
  const Dock dock = stockDock(currentOrientation());
  const auto most = static_cast<NSUInteger>(dock.maximum);
  return dock.floating ? std::clamp<NSUInteger>(iconViews(self).size(), 1, most) : most;
}

SBIcon iconAtPoint(SBIconListView self, CGPoint point, NSUInteger* index, int* proposedOrder, SBIcon) {
  auto& views = iconViews(self);
  for (size_t i = 0; i < views.size(); ++i) {
    CGRect frame = views[i]->frame();
    if (point.x < frame.origin.x || point.x >= frame.origin.x + frame.size.width ||
        point.y < frame.origin.y || point.y >= frame.origin.y + frame.size.height)
      continue;
    if (index) *index = i;
    if (proposedOrder) *proposedOrder = 0;
    return iconOf(views[i].get());
  }
  return {};
}

}  // namespace list
}  // namespace sim::springboard
