// Pages, folder, dock and page dots.
#include "simulator/app/home_screen_report.hpp"

#include "simulator/device/clock.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/uikit/view.hpp"

namespace sim {
namespace {

using namespace springboard;

// Where `view` is on screen at this moment, in the coordinates of its superview.
CGRect shownFrame(UIView view) { return uikit::layerOf(view).frame(clock::now()); }

Json label(SBIconView view) {
  UILabel text = labelOf(view);
  CGRect inView = shownFrame(text), place = shownFrame(view);
  CGRect inPage{{place.origin.x + inView.origin.x, place.origin.y + inView.origin.y}, inView.size};
  bool visible = !text.isHidden() && text.alpha() > 0 && inView.size.width > 0 && inView.size.height > 0;
  return {{"visible", visible}, {"frame", frame(inPage)}};
}

Json icons(SBIconListView list) {
  Json all = Json::array();
  for (auto& view : iconViews(list))
    all.push_back({{"name", iconOf(view.get()).displayName().UTF8String()},
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

}  // namespace

Json reportPages() {
  Json pages = Json::array();
  for (auto& list : homeScreen().pages) pages.push_back(page(list.get(), pages.size()));
  return pages;
}

Json reportFolder() {
  SBFolderIconListView list = homeScreen().folder.get();
  auto classRows = SBIconListView::iconRowsForInterfaceOrientation.on(
      bridge::classNamed<SBFolderIconListView>(), UIInterfaceOrientationPortrait);
  return {{"rows", static_cast<NSInteger>(list.iconRowsForCurrentOrientation())},
          {"columns", static_cast<NSInteger>(list.iconColumnsForCurrentOrientation())},
          {"classRows", static_cast<NSInteger>(classRows)},
          {"verticalPadding", number(list.verticalIconPadding())},
          {"horizontalPadding", number(list.horizontalIconPadding())}};
}

Json reportDock() {
  SBDockIconListView list = homeScreen().dock.get();
  Class cls = bridge::classNamed<SBDockIconListView>();
  auto rows = SBIconListView::iconRowsForInterfaceOrientation.on(cls, UIInterfaceOrientationPortrait);
  auto visible = SBDockIconListView::maxVisibleIconRowsInterfaceOrientation(UIInterfaceOrientationPortrait);
  return {{"height", number(SBDockView::defaultHeight())},
          {"alpha", number(uikit::layerOf(list).presentation(clock::now()).opacity)},
          {"maxIcons", static_cast<NSInteger>(SBDockIconListView::maxIcons())},
          {"rows", static_cast<NSInteger>(rows)},
          {"visibleRows", static_cast<NSInteger>(visible)},
          {"iconsInRow", static_cast<NSInteger>(list.iconsInRowForSpacingCalculation())},
          {"verticalPadding", number(list.verticalIconPadding())},
          {"horizontalPadding", number(list.horizontalIconPadding())},
          {"icons", icons(list)}};
}

Json reportPageDots() {
  SBIconListPageControl dots = homeScreen().pageDots.get();
  return {{"count", dots.numberOfPages()}, {"current", dots.currentPage()}};
}

}  // namespace sim
