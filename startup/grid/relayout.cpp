// The queued pass of a live relayout.
#include "startup/grid/relayout.hpp"

#include "platform/dispatch/dispatch.hpp"
#include "platform/uikit/device.hpp"
#include "startup/grid/geometry.hpp"

namespace tilo {

[[clang::no_destroy]] constinit bridge::Strong<SBIconController> cont;

namespace {

constexpr double duration = 0.6;  // seconds
constexpr NSInteger animationType = 1;

// SpringBoard took another entry point in 11.0.
bool hasDominoLayout() {
  return UIDevice::currentDevice().systemVersion().compare_options("11.0"_ns, NSNumericSearch) ==
         NSOrderedAscending;
}

void layOutPage(SBIconController controller, NSInteger page) {
  SBIconListView list;
  controller.getListView_folder_relativePath_forIndexPath_createIfNecessary(
      &list.raw, nullptr, nullptr, NSIndexPath::indexPathWithIndex(static_cast<NSUInteger>(page)), YES);
  list.setIconsNeedLayout();
  if (hasDominoLayout())
    list.layoutIconsIfNeeded_domino.ifAnswered(duration, YES);
  else
    list.layoutIconsIfNeeded_animationType.ifAnswered(duration, animationType);
}

void layOut(bool onlyCurrentPage) {
  SBIconController controller = SBIconController::sharedInstance();
  NSInteger current = cont->currentIconListIndex();
  if (onlyCurrentPage) {
    layOutPage(controller, current);
    return;
  }
  for (int page = 0; page < numOfPages; ++page) layOutPage(controller, page);
}

}  // namespace

void layoutIcons(bool onlyCurrentPage) {
  dispatch::onMainQueue([onlyCurrentPage] { layOut(onlyCurrentPage); });
}

}  // namespace tilo
