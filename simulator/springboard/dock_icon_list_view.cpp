// SBDockIconListView.
#include "simulator/springboard/dock_icon_list_view.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/springboard/orientation.hpp"

namespace sim::springboard {
namespace {

struct DockListState {
  CGFloat spacing = 0;  // points between icons; 0: spread over the dock's length
};

using List = bridge::Implementation<SBDockIconListView, DockListState>;

// The dock's row, along its length (downwards where it stands upright). Points.
struct Row {
  CGFloat length, extent;  // of the dock, and of an icon
  CGFloat places;
};

NSUInteger placesOf(SBDockIconListView self) {
  NSInteger places = static_cast<NSInteger>(self.iconsInRowForSpacingCalculation());
  return static_cast<NSUInteger>(std::max<NSInteger>(1, places));
}

CGFloat visibleHeight(const Dock& dock) {
  return dock.labels ? iconViewSize().height : iconImageSize().height;
}

CGSize room(SBDockIconListView self, const Dock& dock) {
  return {self.bounds().size.width, self.bounds().size.height - dock.bottomInset};
}

Row rowOf(SBDockIconListView self) {
  Dock dock = stockDock(currentOrientation());
  CGSize area = room(self, dock);
  return {dock.upright ? area.height : area.width, dock.upright ? visibleHeight(dock) : iconViewSize().width,
          static_cast<CGFloat>(placesOf(self))};
}

// The gap that spreads the row evenly, with the same gap at either end.
CGFloat evenGap(const Row& row) { return (row.length - row.places * row.extent) / (row.places + 1); }

NSUInteger maxIcons(Class) {
  return static_cast<NSUInteger>(stockDock(UIInterfaceOrientationPortrait).maximum);
}

// The dock is one row, or one column of as many rows as it holds icons.
NSUInteger rowsForOrientation(Class, NSInteger orientation) {
  return static_cast<NSUInteger>(stockGrid(ListKind::dock, orientation).rows);
}

NSUInteger columnsForOrientation(Class, NSInteger orientation) {
  return static_cast<NSUInteger>(stockGrid(ListKind::dock, orientation).columns);
}

NSUInteger iconsInRow(SBDockIconListView self) {
  // A dock that holds many icons is spread for those that it has.
  int maximum = stockDock(currentOrientation()).maximum;
  if (!stockDock(currentOrientation()).floating) return static_cast<NSUInteger>(maximum);
  return std::clamp<NSUInteger>(self.icons().count(), 1, static_cast<NSUInteger>(maximum));
}

CGFloat spacing(SBDockIconListView self) {
  CGFloat own = List::state(self).spacing;
  return own > 0 ? own : evenGap(rowOf(self));
}

void setSpacing(SBDockIconListView self, CGFloat points) {
  if (List::state(self).spacing == points) return;
  List::state(self).spacing = points;
  placeDockIcons(self);
}

// What is kept free at the ends of a row that is spread.
CGFloat effectiveSpacing(SBDockIconListView self) { return spacing(self); }

SBIcon iconAtPoint(SBDockIconListView self, CGPoint point, NSUInteger* index, int* proposedOrder, SBIcon) {
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

// Where the row starts, and how far its icons are apart. A spacing of the list's own keeps the icons together
// in the middle; without one they are spread between the ends.
struct Spread {
  CGFloat start, pitch;
};

Spread spreadOf(SBDockIconListView list, const Row& row, size_t icons) {
  CGFloat own = List::state(list).spacing;
  if (own > 0) {
    CGFloat count = std::min(row.places, static_cast<CGFloat>(icons));
    return {(row.length - count * row.extent - (count - 1) * own) / 2, row.extent + own};
  }
  // A crowded row has less at its ends, so that icons do not cover each other.
  CGFloat end = std::min(list.effectiveSpacing(), evenGap(row));
  if (row.places < 2) return {(row.length - row.extent) / 2, 0};
  return {end, (row.length - 2 * end - row.extent) / (row.places - 1)};
}

}  // namespace

void placeDockIcons(SBDockIconListView list) {
  Dock dock = stockDock(currentOrientation());
  CGSize area = room(list, dock), size = iconViewSize();
  Row row = rowOf(list);
  Spread spread = spreadOf(list, row, iconViews(list).size());
  CGFloat position = spread.start;
  for (auto& view : iconViews(list)) {
    CGPoint origin = dock.upright ? CGPoint{(area.width - size.width) / 2, position}
                                  : CGPoint{position, (area.height - visibleHeight(dock)) / 2};
    view->setFrame({origin, size});
    hideLabel(view.get(), !dock.labels);
    position += spread.pitch;
  }
}

void defineDockIconListView() {
  using bridge::method;
  using Face = SBDockIconListView;
  List::define<SBIconListView>(
      method<&Face::maxIcons, maxIcons>(),
      method<&Face::maxVisibleIconRowsInterfaceOrientation, rowsForOrientation>(),
      method<&SBIconListView::iconRowsForInterfaceOrientation, rowsForOrientation>(),
      method<&SBIconListView::iconColumnsForInterfaceOrientation, columnsForOrientation>(),
      method<&Face::iconsInRowForSpacingCalculation, iconsInRow>(), method<&Face::spacing, spacing>(),
      method<&Face::setSpacing, setSpacing>(), method<&Face::effectiveSpacing, effectiveSpacing>(),
      method<&Face::iconAtPoint_index_proposedOrder_grabbedIcon, iconAtPoint>());
}

}  // namespace sim::springboard
