// SBDockIconListView.
#include "simulator/springboard/dock_icon_list_view.hpp"

#include <algorithm>

#include "simulator/springboard/icon_list_answers.hpp"
#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/springboard/orientation.hpp"
#include "simulator/springboard/system_class.hpp"

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

CGFloat keptFree(SBDockIconListView self) {
  return self.effectiveSpacing.isAnswered() ? self.effectiveSpacing.ifAnswered() : effectiveSpacing(self);
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
  CGFloat end = std::min(keptFree(list), evenGap(row));
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
    view->frame.set({origin, size});
    hideLabel(view.get(), !dock.labels);
    position += spread.pitch;
  }
}

void defineDockIconListView() {
  using Face = SBDockIconListView;
  defineSystemClass<List>(
      own<&Face::maxIcons, list::mostIcons>(),
      own<&Face::maxVisibleIconRowsInterfaceOrientation, list::rowsForOrientation>(),
      own<&SBIconListView::iconRowsForInterfaceOrientation, list::rowsForOrientation>(),
      own<&SBIconListView::iconColumnsForInterfaceOrientation, list::columnsForOrientation>(),
      own<&Face::iconsInRowForSpacingCalculation, list::iconsInRow>(),
      own<&SBIconListView::sideIconInset, list::sideInset>(),
      own<&SBIconListView::topIconInset, list::topInset>(),
      own<&Face::iconAtPoint_index_proposedOrder_grabbedIcon, list::iconAtPoint>(),
      own<&Face::spacing, spacing>(), own<&Face::setSpacing, setSpacing>(),
      own<&Face::effectiveSpacing, effectiveSpacing>());
}

}  // namespace sim::springboard
