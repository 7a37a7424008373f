// The method table.
#include "startup/method_table.hpp"

#include "bridge/replace.hpp"
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
  const bridge::Row table[] = {
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
      add<SBIconScrollView, &SBIconScrollView::layout, layout>("v@:@"),
      replace<Controller, &NSObject::init, initController>(),
      replace<Controller, &UIViewController::viewDidAppear, viewDidAppear>(),
      replace<Controller, &UIViewController::didRotateFromInterfaceOrientation,
              didRotateFromInterfaceOrientation>(),
  };
  for (const bridge::Row& row : table) bridge::install(row);
}

}  // namespace tilo
