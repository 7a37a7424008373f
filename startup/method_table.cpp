// The method table.
#include "startup/method_table.hpp"

#include "bridge/replace.hpp"
#include "hooks/appearance.hpp"
#include "hooks/dock.hpp"
#include "hooks/icon_controller.hpp"
#include "hooks/icon_lists.hpp"
#include "hooks/scroll_view.hpp"

namespace tilo {

void installMethods() {
  using bridge::add;
  using bridge::replace;
  using namespace hooks;
  using List = SBIconListView;
  using Controller = SBIconController;
  using Image = SBIconImageView;
  using LabelParameters = SBIconLabelImageParameters;
  using Dots = SBIconListPageControl;
  using Scroll = SBIconScrollView;
  using Dock = SBDockIconListView;
  const bridge::Row table[] = {
      replace<Image, &UIView::layoutSubviews, imageLayoutSubviews>(),
      replace<Image, &Image::cornerRadius, cornerRadius>(),
      replace<Image, &Image::showsSquareCorners, showsSquareCorners>(),
      replace<List, &List::iconRowsForSpacingCalculation, iconRowsForSpacingCalculation>(),
      replace<List, &List::iconRowsForCurrentOrientation, iconRowsForCurrentOrientation>(),
      replace<List, &List::iconColumnsForCurrentOrientation, iconColumnsForCurrentOrientation>(),
      replace<List, &List::iconRowsForInterfaceOrientation, iconRowsForInterfaceOrientation>(),
      replace<List, &List::iconColumnsForInterfaceOrientation, iconColumnsForInterfaceOrientation>(),
      replace<List, &List::verticalIconPadding, verticalIconPadding>(),
      replace<List, &List::horizontalIconPadding, horizontalIconPadding>(),
      replace<SBFolderIconListView, &List::iconRowsForInterfaceOrientation,
              folderIconRowsForInterfaceOrientation>(),
      replace<SBRootIconListView, &List::sideIconInset, sideIconInset>(),
      replace<SBRootIconListView, &List::topIconInset, topIconInset>(),
      replace<LabelParameters, &LabelParameters::shadowColor, shadowColor>(),
      replace<LabelParameters, &LabelParameters::textColor, textColor>(),
      replace<SBUIController, &SBUIController::activateApplicationAnimated, activateApplication>(),
      replace<Dots, &Dots::_setIndicatorImage_toEnabled_index, setIndicatorImageAtIndex>(),
      replace<Dots, &Dots::_setIndicatorImage_toEnabled, setIndicatorImage>(),
      replace<SBIconLabelImage, &SBIconLabelImage::_rectWithDrawing_inRect_fromParameters, labelRect>(),
      add<Scroll, &Scroll::listCellPreferencesUpdated_withUserInfo, listCellPreferencesUpdated>("v@:@@"),
      add<Scroll, &Scroll::preferencesUpdated_withUserInfo, preferencesUpdated>("v@:@@"),
      add<Scroll, &Scroll::layout, layout>("v@:@"),
      replace<Scroll, &UIScrollView::setContentOffset, setContentOffset>(),
      replace<Scroll, &NSObject::dealloc, deallocScrollView>(),
      add<Scroll, &Scroll::swipe, swipe>("v@:@"),
      replace<Scroll, &NSObject::init, initScrollView>(),
      replace<Scroll, &UIResponder::touchesEnded_withEvent, touchesEnded>(),
      replace<Scroll, &UIResponder::touchesMoved_withEvent, touchesMoved>(),
      add<Scroll, &Scroll::swipeGesture, swipeGesture>("@@:"),
      add<Scroll, &Scroll::setSwipeGesture, setSwipeGesture>("v@:@"),
      add<Scroll, &Scroll::tapGesture, tapGesture>("@@:"),
      add<Scroll, &Scroll::setTapGesture, setTapGesture>("v@:@"),
      add<Dock, &Dock::isDockIconsEnabled, isDockIconsEnabled>("B@:"),
      add<Dock, &Dock::numberOfDockIcons, numberOfDockIcons>("i@:"),
      replace<Dock, &UIView::layoutSubviews, dockLayoutSubviews>(),
      replace<Dock, &Dock::effectiveSpacing, effectiveSpacing>(),
      replace<Dock, &Dock::iconAtPoint_index_proposedOrder_grabbedIcon, iconAtPoint>(),
      replace<Dock, &Dock::iconsInRowForSpacingCalculation, iconsInRowForSpacingCalculation>(),
      replace<Dock, &Dock::maxIcons, maxIcons>(),
      replace<Dock, &List::iconRowsForInterfaceOrientation, dockIconRowsForInterfaceOrientation>(),
      replace<Dock, &Dock::maxVisibleIconRowsInterfaceOrientation, maxVisibleIconRows>(),
      replace<Controller, &NSObject::init, initController>(),
      replace<Controller, &UIViewController::viewDidAppear, viewDidAppear>(),
      replace<Controller, &UIViewController::didRotateFromInterfaceOrientation,
              didRotateFromInterfaceOrientation>(),
      replace<SBDockView, &SBDockView::defaultHeight, defaultHeight>(),
      replace<SBDockView, &SBDockView::setBackgroundAlpha, setBackgroundAlpha>(),
  };
  for (const bridge::Row& row : table) bridge::install(row);
}

}  // namespace tilo
