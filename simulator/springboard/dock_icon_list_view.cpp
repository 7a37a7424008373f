// SBDockIconListView.
#include "simulator/springboard/dock_icon_list_view.hpp"

#include <algorithm>

#include "bridge/define.hpp"
#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/springboard/orientation.hpp"

namespace sim::springboard {
namespace {

using List = bridge::Implementation<SBDockIconListView>;

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

}  // namespace

void placeDockIcons(SBDockIconListView list) {
  Dock dock = stockDock(currentOrientation());
  CGSize area{list.bounds().size.width, list.bounds().size.height - dock.bottomInset},
      size = iconViewSize(), image = iconImageSize();
  auto places = static_cast<CGFloat>(
      std::max<NSInteger>(1, static_cast<NSInteger>(list.iconsInRowForSpacingCalculation())));
  CGFloat visibleHeight = dock.labels ? size.height : image.height;
  CGFloat length = dock.upright ? area.height : area.width;
  CGFloat extent = dock.upright ? visibleHeight : size.width;
  CGFloat gap = (length - places * extent) / (places + 1);
  CGFloat position = gap;
  for (auto& view : iconViews(list)) {
    CGPoint origin = dock.upright ? CGPoint{(area.width - size.width) / 2, position}
                                  : CGPoint{position, (area.height - visibleHeight) / 2};
    view->setFrame({origin, size});
    labelOf(view.get()).setHidden(!dock.labels);
    position += extent + gap;
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
      method<&Face::iconsInRowForSpacingCalculation, iconsInRow>());
}

}  // namespace sim::springboard
