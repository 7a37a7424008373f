// SBIconListView and the lists of pages and folders: rows and columns of icons, placed by what the list
// itself answers when it is asked for its counts, paddings and insets.
#include "simulator/springboard/icon_list_view.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/device/clock.hpp"
#include "simulator/springboard/dock_icon_list_view.hpp"
#include "simulator/springboard/icon_list_answers.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/springboard/orientation.hpp"
#include "simulator/springboard/relayouts.hpp"
#include "simulator/springboard/system_class.hpp"

namespace sim::springboard {
namespace {

struct ListState {
  std::vector<bridge::Strong<SBIcon>> icons;
  std::vector<bridge::Strong<SBIconView>> views;
  int page = -1;
  bool iconsNeedLayout = true;
  CGSize laidOutFor{};
};

using List = bridge::Implementation<SBIconListView, ListState>;
using RootList = bridge::Implementation<SBRootIconListView>;
using FolderList = bridge::Implementation<SBFolderIconListView>;

// A message that nobody sends to a list from outside.
struct PlacedList : bridge::Face<"SBIconListView", SBIconListView> {
  MESSAGE Method<"layoutIconsNow", void()> layoutIconsNow;
};

// The one place in which icons get their places. A grid without columns is laid out as one of a single
// column.
void placeIcons(SBIconListView self) {
  auto& state = List::state(self);
  state.iconsNeedLayout = false;
  state.laidOutFor = self.bounds().size;
  // What icons look like may have changed along with their places.
  for (auto& view : state.views) view->setNeedsLayout();
  if (kindOf(self) == ListKind::dock) {
    placeDockIcons(bridge::as<SBDockIconListView>(self));
    return;
  }
  CGPoint start{self.sideIconInset(), self.topIconInset()};
  CGFloat horizontal = self.horizontalIconPadding(), vertical = self.verticalIconPadding();
  auto across = std::max<NSInteger>(1, static_cast<NSInteger>(self.iconColumnsForCurrentOrientation()));
  CGSize size = iconViewSize();
  // The first row and column stand at the insets, even where a padding is infinite.
  auto along = [](NSInteger steps, CGFloat pitch) {
    return steps == 0 ? 0 : static_cast<CGFloat>(steps) * pitch;
  };
  for (size_t i = 0; i < state.views.size(); ++i) {
    auto place = static_cast<NSInteger>(i);
    CGPoint origin{start.x + along(place % across, size.width + horizontal),
                   start.y + along(place / across, size.height + vertical)};
    // A place that is no number is no place: the icon stays where it is.
    if (!std::isnan(origin.x) && !std::isnan(origin.y)) state.views[i]->frame.set({origin, size});
  }
}

// Icons follow the list's size at once.
void setFrame(SBIconListView self, CGRect frame) {
  List::super<bridge::setterOf<&UIView::frame>>(self, frame);
  auto& state = List::state(self);
  if (state.iconsNeedLayout || state.laidOutFor != self.bounds().size) placeIcons(self);
}

void layoutIconsNow(SBIconListView self) { placeIcons(self); }

void setIconsNeedLayout(SBIconListView self) { List::state(self).iconsNeedLayout = true; }

void relayout(SBIconListView self, double duration, const char* call) {
  auto& state = List::state(self);
  noteRelayout({state.page, duration, call, clock::now()});
  if (!state.iconsNeedLayout) return;
  UIView::animateWithDuration_animations(duration, bridge::Block<void()>([self] { placeIcons(self); }));
}

void layoutWithDomino(SBIconListView self, double duration, BOOL) { relayout(self, duration, "domino"); }

void layoutWithAnimationType(SBIconListView self, double duration, NSInteger) {
  relayout(self, duration, "animationType");
}

NSArray icons(SBIconListView self) {
  auto list = bridge::make<NSMutableArray, &NSObject::init>();
  for (auto& icon : List::state(self).icons) list->addObject(icon.get());
  return std::move(list).autoreleased();
}

SBIconView viewForIcon(SBIconListView self, SBIcon icon) {
  for (auto& view : List::state(self).views)
    if (iconOf(view.get()) == icon) return view.get();
  return {};
}

}  // namespace

void setIcons(SBIconListView list, std::vector<bridge::Strong<SBIcon>> icons) {
  auto& state = List::state(list);
  for (auto& view : state.views) view->removeFromSuperview();
  state.views.clear();
  for (auto& icon : icons) {
    state.views.push_back(makeIconView(icon.get()));
    list.addSubview(state.views.back());
  }
  state.icons = std::move(icons);
  state.iconsNeedLayout = true;
  list.setNeedsLayout();
}

void layOutIcons(SBIconListView list) { placeIcons(list); }

const std::vector<bridge::Strong<SBIconView>>& iconViews(SBIconListView list) {
  return List::state(list).views;
}

void setPage(SBIconListView list, int page) { List::state(list).page = page; }

void defineIconListView() {
  using Face = SBIconListView;
  using Dock = SBDockIconListView;
  using namespace list;
  defineSystemClass<List>(
      own<&Face::iconRowsForInterfaceOrientation, rowsForOrientation>(),
      own<&Face::iconColumnsForInterfaceOrientation, columnsForOrientation>(),
      own<&Dock::maxIcons, mostIcons>(),
      own<&Dock::maxVisibleIconRowsInterfaceOrientation, rowsForOrientation>(),
      own<&Face::iconRowsForSpacingCalculation, rows>(), own<&Face::iconRowsForCurrentOrientation, rows>(),
      own<&Face::iconColumnsForCurrentOrientation, columns>(),
      own<&Dock::iconsInRowForSpacingCalculation, iconsInRow>(),
      own<&Face::verticalIconPadding, verticalPadding>(),
      own<&Face::horizontalIconPadding, horizontalPadding>(), own<&Face::sideIconInset, sideInset>(),
      own<&Face::topIconInset, topInset>(), own<&Face::icons, icons>(),
      own<&Face::viewForIcon, viewForIcon>(), own<bridge::setterOf<&UIView::frame>, setFrame>(),
      own<&PlacedList::layoutIconsNow, layoutIconsNow>(),
      own<&Dock::iconAtPoint_index_proposedOrder_grabbedIcon, iconAtPoint>(),
      own<&Face::setIconsNeedLayout, setIconsNeedLayout>(),
      own<&Face::layoutIconsIfNeeded_animationType, layoutWithAnimationType>(),
      own<&Face::layoutIconsIfNeeded_domino, layoutWithDomino>());
  defineSystemClass<RootList>(own<&Face::sideIconInset, sideInset>(), own<&Face::topIconInset, topInset>());
  defineSystemClass<FolderList>();
}

}  // namespace sim::springboard
