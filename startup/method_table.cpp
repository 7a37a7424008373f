// The method table. A row tells from which system on it takes effect, whether the method is replaced or
// added, its class, the method, and what is to run.
#include "startup/method_table.hpp"

#include <iterator>

#include "hooks/appearance.hpp"
#include "hooks/dock.hpp"
#include "hooks/icon_controller.hpp"
#include "hooks/icon_lists.hpp"
#include "hooks/scroll_view.hpp"
#include "settings/log/console_log.hpp"

namespace tilo {
namespace {

using bridge::add;
using bridge::along;
using bridge::instead;
using bridge::replace;
using namespace hooks;
using List = SBIconListView;
using Root = SBRootIconListView;
using Folder = SBFolderIconListView;
using Controller = SBIconController;
using ViewController = UIViewController;
using Image = SBIconImageView;
using Label = SBIconLabelImage;
using LabelParameters = SBIconLabelImageParameters;
using Launcher = SBUIController;
using Dots = SBIconListPageControl;
using Scroll = SBIconScrollView;
using Dock = SBDockIconListView;
using Panel = SBDockView;

// clang-format off
constexpr bridge::Row table[] = {
    /* 9.2   */ replace<Image, &UIView::layoutSubviews, imageLayoutSubviews>(),
    /* 9.2   */ replace<Image, &Image::cornerRadius, cornerRadius>(),
    /* 9.2   */ replace<Image, &Image::showsSquareCorners, showsSquareCorners>(),
    /* 9.2   */ replace<List, &List::iconRowsForSpacingCalculation, iconRowsForSpacingCalculation>(),
    /* 9.2   */ replace<List, &List::iconRowsForCurrentOrientation, iconRowsForCurrentOrientation>(),
    /* 9.2   */ replace<List, &List::iconColumnsForCurrentOrientation, iconColumnsForCurrentOrientation>(),
    /* 9.2   */ replace<List, &List::iconRowsForInterfaceOrientation, iconRowsForInterfaceOrientation>(),
    /* 9.2   */ replace<List, &List::iconColumnsForInterfaceOrientation, iconColumnsForInterfaceOrientation>(),
    /* 9.2   */ replace<List, &List::verticalIconPadding, verticalIconPadding>(),
    /* 9.2   */ replace<List, &List::horizontalIconPadding, horizontalIconPadding>(),
    /* 9.2   */ replace<Folder, &List::iconRowsForInterfaceOrientation, folderIconRowsForInterfaceOrientation>(),
    /* 9.2   */ replace<Root, &List::sideIconInset, sideIconInset>(),
    /* 9.2   */ replace<Root, &List::topIconInset, topIconInset>(),
    /* none  */ replace<LabelParameters, &LabelParameters::shadowColor, shadowColor>(),
    /* 9.2   */ replace<LabelParameters, &LabelParameters::textColor, textColor>(),
    /* none  */ replace<Launcher, &Launcher::activateApplicationAnimated, activateAnimated>(),
    /* to 10 */     instead<&Launcher::activateApplication, activate>(),
    /* to 10 */     instead<&Launcher::activateApplication_fromIcon_location, activateFromIcon>(),
    /* 11    */     instead<&Launcher::activateApplication_fromIcon_location_activationSettings_actions, activateWithSettings>(),
    /* 9.2   */ replace<Dots, &Dots::_setIndicatorImage_toEnabled_index, setIndicatorImageAtIndex>(),
    /* none  */ replace<Dots, &Dots::_setIndicatorImage_toEnabled, setIndicatorImage>(),
    /* 9.2   */ replace<Label, &Label::_rectWithDrawing_inRect_fromParameters, labelRect>(),
    /* 9.2   */ add<Scroll, &Scroll::listCellPreferencesUpdated_withUserInfo, listCellPreferencesUpdated>("v@:@@"),
    /* 9.2   */ add<Scroll, &Scroll::preferencesUpdated_withUserInfo, preferencesUpdated>("v@:@@"),
    /* 9.2   */ add<Scroll, &Scroll::layout, layout>("v@:@"),
    /* 9.2   */ replace<Scroll, bridge::setterOf<&UIScrollView::contentOffset>, setContentOffset>(),
    /* 9.2   */ replace<Scroll, &NSObject::dealloc, deallocScrollView>(),
    /* 9.2   */ add<Scroll, &Scroll::swipe, swipe>("v@:@"),
    /* 9.2   */ replace<Scroll, &NSObject::init, initScrollView>(),
    /* 9.2   */     along<&UIView::initWithFrame, initScrollViewWithFrame>(),
    /* 9.2   */ replace<Scroll, &UIResponder::touchesEnded_withEvent, touchesEnded>(),
    /* 9.2   */ replace<Scroll, &UIResponder::touchesMoved_withEvent, touchesMoved>(),
    /* 9.2   */ add<Scroll, &Scroll::swipeGesture, swipeGesture>("@@:"),
    /* 9.2   */ add<Scroll, &Scroll::setSwipeGesture, setSwipeGesture>("v@:@"),
    /* 9.2   */ add<Scroll, &Scroll::tapGesture, tapGesture>("@@:"),
    /* 9.2   */ add<Scroll, &Scroll::setTapGesture, setTapGesture>("v@:@"),
    /* 9.2   */ add<Dock, &Dock::isDockIconsEnabled, isDockIconsEnabled>("B@:"),
    /* 9.2   */ add<Dock, &Dock::numberOfDockIcons, numberOfDockIcons>("i@:"),
    /* 9.2   */ replace<Dock, &UIView::layoutSubviews, dockLayoutSubviews>(),
    /* 11    */ replace<Dock, &Dock::effectiveSpacing, effectiveSpacing>(),
    /* to 10 */ replace<Dock, &Dock::iconAtPoint_index_proposedOrder_grabbedIcon, iconAtPoint>(),
    /* 9.2   */ replace<Dock, &Dock::iconsInRowForSpacingCalculation, iconsInRowForSpacingCalculation>(),
    /* 9.2   */ replace<Dock, &Dock::maxIcons, maxIcons>(),
    /* 9.2   */ replace<Dock, &List::iconRowsForInterfaceOrientation, dockIconRowsForInterfaceOrientation>(),
    /* 9.2   */ replace<Dock, &Dock::maxVisibleIconRowsInterfaceOrientation, maxVisibleIconRows>(),
    /* to 10 */ replace<Controller, &NSObject::init, initController>(),
    /* 11    */     instead<&ViewController::initWithNibName_bundle, initControllerWithNib>(),
    /* 9.2   */ replace<Controller, &ViewController::viewDidAppear, viewDidAppear>(),
    /* none  */ replace<Controller, &ViewController::didRotateFromInterfaceOrientation, didRotate>(),
    /* 9.2   */     instead<&Controller::_didRotateFromInterfaceOrientation, didRotateInternally>(),
    /* 9.2   */ replace<Panel, &Panel::defaultHeight, defaultHeight>(),
    /* 9.2   */ replace<Panel, &Panel::setBackgroundAlpha, setBackgroundAlpha>(),
};
// clang-format on

// How many rows there are, those left out that belong to others.
consteval size_t ownRows() {
  size_t count = 0;
  for (const bridge::Row& row : table)
    count += row.wish == bridge::Wish::replaced || row.wish == bridge::Wish::added;
  return count;
}

NSString text(const char* characters) { return NSString::stringWithUTF8String(characters); }

// One line in all, and none where nothing is missing.
void tellWhatIsMissing() {
  NSString names;
  for (const bridge::Outcome* row = hookOutcomes; row->className; ++row) {
    if (row->outcome != bridge::outcome::methodMissing && row->outcome != bridge::outcome::classMissing)
      continue;
    NSString name =
        text(row->className).stringByAppendingString(" "_ns).stringByAppendingString(text(row->method));
    names = names ? names.stringByAppendingString(", "_ns).stringByAppendingString(name) : name;
  }
  if (names) consoleDebugLog("MethodTable", "not in this system: "_ns.stringByAppendingString(names));
}

}  // namespace
}  // namespace tilo

constinit bridge::Outcome hookOutcomes[tilo::ownRows() + 1]{};

namespace tilo {

void installMethods() {
  bridge::install(table, std::size(table), hookOutcomes);
  tellWhatIsMissing();
}

}  // namespace tilo
