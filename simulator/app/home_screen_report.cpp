// Pages, folder, dock and page dots.
#include <algorithm>

#include "simulator/app/report_parts.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/springboard/dock_view.hpp"
#include "simulator/springboard/icon.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/springboard/system_class.hpp"
#include "simulator/uikit/controls/page_control.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim {
namespace {

using namespace springboard;

// Where `view` is on screen at this moment, in the coordinates of its superview.
CGRect shownFrame(UIView view) { return uikit::layerOf(view).frame(clock::now()); }

CGFloat alpha(UIView view) { return uikit::layerOf(view).presentation(clock::now()).opacity; }

Json label(SBIconView view) {
  ShownLabel label = labelOf(view);
  CGPoint origin = shownFrame(view).origin;
  CGRect inPage{{origin.x + label.frame.origin.x, origin.y + label.frame.origin.y}, label.frame.size};
  return {{"visible", label.visible}, {"frame", frame(inPage)}};
}

Json icons(SBIconListView list) {
  Json all = Json::array();
  for (auto& view : iconViews(list))
    all.push_back({{"name", nameOf(iconOf(view.get())).UTF8String()},
                   {"frame", frame(shownFrame(view.get()))},
                   {"square", static_cast<bool>(imageViewOf(view.get()).showsSquareCorners())},
                   {"label", label(view.get())}});
  return all;
}

Json page(SBRootIconListView list, size_t index) {
  return {{"index", index},
          {"rows", static_cast<NSInteger>(list.iconRowsForCurrentOrientation())},
          {"columns", static_cast<NSInteger>(list.iconColumnsForCurrentOrientation())},
          {"rowsForSpacing", static_cast<NSInteger>(list.iconRowsForSpacingCalculation())},
          {"verticalPadding", number(list.verticalIconPadding())},
          {"horizontalPadding", number(list.horizontalIconPadding())},
          {"sideInset", number(list.sideIconInset())},
          {"topInset", number(list.topIconInset())},
          {"icons", icons(list)}};
}

// Null where the version has no such message.
template <auto Member>
Json answered(SBDockIconListView list) {
  return (list.*Member).isAnswered() ? number((list.*Member).ifAnswered()) : Json();
}

}  // namespace

Json reportPages(Simulation&) {
  Json pages = Json::array();
  for (auto& list : homeScreen().pages) pages.push_back(page(list.get(), pages.size()));
  return pages;
}

Json reportFolder(Simulation&) {
  SBFolderIconListView list = homeScreen().folder.get();
  auto classRows = SBIconListView::iconRowsForInterfaceOrientation.on(
      bridge::classNamed<SBFolderIconListView>(), UIInterfaceOrientationPortrait);
  return {{"rows", static_cast<NSInteger>(list.iconRowsForCurrentOrientation())},
          {"columns", static_cast<NSInteger>(list.iconColumnsForCurrentOrientation())},
          {"classRows", static_cast<NSInteger>(classRows)},
          {"verticalPadding", number(list.verticalIconPadding())},
          {"horizontalPadding", number(list.horizontalIconPadding())}};
}

Json reportDock(Simulation&) {
  SBDockIconListView list = homeScreen().dock.get();
  Class cls = bridge::classNamed<SBDockIconListView>();
  auto rows = SBIconListView::iconRowsForInterfaceOrientation.on(cls, UIInterfaceOrientationPortrait);
  auto visible = SBDockIconListView::maxVisibleIconRowsInterfaceOrientation(UIInterfaceOrientationPortrait);
  return {{"height", number(SBDockView::defaultHeight())},
          {"alpha", number(alpha(list))},
          {"backgroundAlpha", number(alpha(dockBackground(homeScreen().dockView.get())))},
          {"maxIcons", static_cast<NSInteger>(SBDockIconListView::maxIcons())},
          {"rows", static_cast<NSInteger>(rows)},
          {"visibleRows", static_cast<NSInteger>(visible)},
          {"iconsInRow", static_cast<NSInteger>(list.iconsInRowForSpacingCalculation())},
          {"spacing", answered<&SBDockIconListView::spacing>(list)},
          {"effectiveSpacing", answered<&SBDockIconListView::effectiveSpacing>(list)},
          {"verticalPadding", number(list.verticalIconPadding())},
          {"horizontalPadding", number(list.horizontalIconPadding())},
          {"icons", icons(list)}};
}

Json reportPageDots(Simulation&) {
  SBIconListPageControl dots = homeScreen().pageDots.get();
  auto dotViews = uikit::indicatorsOf(dots);
  auto drawn =
      std::count_if(dotViews.begin(), dotViews.end(), [](UIImageView dot) { return bool(dot.image()); });
  return {{"count", dots.numberOfPages()}, {"drawn", drawn}, {"current", dots.currentPage()}};
}

}  // namespace sim
