// SpringBoard's classes by system version, as class dumps of six systems show them: parents, and of the
// methods those that the simulator implements or the library names. What is not listed as a class's own is
// inherited, or is not there at all.
#include "simulator/springboard/class_facts.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string_view>

namespace sim::springboard {
namespace {

// The dumps, oldest first; a set of them is a number with their bits.
constexpr Version dumped[] = {{9, 2}, {9, 3}, {10, 1}, {10, 2}, {11, 1}, {12, 2}};
using Dumps = unsigned;
constexpr Dumps ios92 = 1, ios93 = 2, ios101 = 4, ios102 = 8, ios111 = 16, ios122 = 32;
constexpr Dumps until9 = ios92 | ios93, only10 = ios101 | ios102, from11 = ios111 | ios122;
constexpr Dumps until10 = until9 | only10, from10 = only10 | from11, from93 = ios93 | from10;
constexpr Dumps all = until10 | from11, none = 0;

struct Parent {
  std::string_view name;
  const char* parent;
  Dumps dumps;
};

constexpr Parent parents[] = {
    {"SBAlert", "UIViewController", all},
    {"SBApplication", "NSObject", all},
    {"SBChevronView", "UIView", until9},
    {"SBCloseBoxView", "UIButton", until10},
    {"SBCloseBoxView", "SBHomeScreenButton", from11},
    {"SBDashBoardViewController", "SBLockScreenViewControllerBase", from10},
    {"SBDockIconListView", "SBRootIconListView", all},
    {"SBDockView", "UIView", all},
    {"SBFolderIconListView", "SBIconListView", all},
    {"SBFolderView", "UIView", all},
    {"SBHomeScreenButton", "UIButton", from11},
    {"SBIcon", "NSObject", all},
    {"SBIconController", "UIViewController", all},
    {"SBIconImageView", "UIView", all},
    {"SBIconLabelImage", "UIImage", all},
    {"SBIconLabelImageParameters", "NSObject", all},
    {"SBIconListPageControl", "UIPageControl", all},
    {"SBIconListView", "UIView", all},
    {"SBIconScrollView", "UIScrollView", all},
    {"SBIconView", "UIView", all},
    {"SBLockScreenManager", "NSObject", all},
    {"SBLockScreenViewController", "SBLockScreenViewControllerBase", until10},
    {"SBLockScreenViewControllerBase", "SBAlert", until10},
    {"SBLockScreenViewControllerBase", "UIViewController", from11},
    {"SBRootFolderView", "SBFolderView", all},
    {"SBRootIconListView", "SBIconListView", all},
    {"SBUIChevronView", "UIView", from10},
    {"SBUIController", "NSObject", all},
    {"SBXCloseBoxView", "SBCloseBoxView", from11},
};

struct Own {
  std::string_view name;
  std::string_view method;  // with + for the class's, - for its objects'
  Dumps dumps;
};

constexpr Own methods[] = {
    {"SBApplication", "-displayName", all},
    {"SBChevronView", "-initWithColor:", until9},
    {"SBChevronView", "-layoutSubviews", until9},
    {"SBCloseBoxView", "-layoutSubviews", until10},
    {"SBDashBoardViewController", "-isLockScreenVisible", none},
    {"SBDashBoardViewController", "-loadView", from10},
    {"SBDockIconListView", "+iconColumnsForInterfaceOrientation:", all},
    {"SBDockIconListView", "+iconRowsForInterfaceOrientation:", all},
    {"SBDockIconListView", "+maxIcons", from11},
    {"SBDockIconListView", "+maxVisibleIconRowsInterfaceOrientation:", from11},
    {"SBDockIconListView", "-effectiveSpacing", from11},
    {"SBDockIconListView", "-iconAtPoint:index:proposedOrder:grabbedIcon:", until10},
    {"SBDockIconListView", "-iconsInRowForSpacingCalculation", all},
    {"SBDockIconListView", "-setSpacing:", from11},
    {"SBDockIconListView", "-sideIconInset", until10},
    {"SBDockIconListView", "-spacing", from11},
    {"SBDockIconListView", "-topIconInset", until10},
    {"SBDockView", "+defaultHeight", all},
    {"SBDockView", "-layoutSubviews", all},
    {"SBDockView", "-setBackgroundAlpha:", all},
    {"SBFolderView", "-layoutSubviews", all},
    {"SBFolderView", "-scrollViewDidScroll:", all},
    {"SBHomeScreenButton", "-layoutSubviews", from11},
    {"SBIcon", "-displayName", from93},
    {"SBIcon", "-displayNameForLocation:", all},
    {"SBIconController", "+sharedInstance", all},
    {"SBIconController", "-_didRotateFromInterfaceOrientation:", all},
    {"SBIconController", "-_willAnimateRotationToInterfaceOrientation:duration:", all},
    {"SBIconController", "-_willRotateToInterfaceOrientation:duration:", all},
    {"SBIconController", "-currentIconListIndex", all},
    {"SBIconController", "-currentRootIconList", all},
    {"SBIconController", "-didRotateFromInterfaceOrientation:", none},
    {"SBIconController", "-getListView:folder:relativePath:forIndexPath:createIfNecessary:", all},
    {"SBIconController", "-iconTapped:", all},
    {"SBIconController", "-init", until10},
    {"SBIconController", "-initWithNibName:bundle:", from11},
    {"SBIconController", "-isEditing", all},
    {"SBIconController", "-loadView", all},
    {"SBIconController", "-setIsEditing:", all},
    {"SBIconController", "-viewWillTransitionToSize:withTransitionCoordinator:", all},
    {"SBIconImageView", "+cornerRadius", all},
    {"SBIconImageView", "-layoutSubviews", all},
    {"SBIconImageView", "-setShowsSquareCorners:", all},
    {"SBIconImageView", "-showsSquareCorners", all},
    {"SBIconLabelImage", "+_rectWithDrawing:inRect:fromParameters:", all},
    {"SBIconLabelImageParameters", "-shadowColor", none},
    {"SBIconLabelImageParameters", "-text", all},
    {"SBIconLabelImageParameters", "-textColor", all},
    {"SBIconListPageControl", "-_setIndicatorImage:toEnabled:", none},
    {"SBIconListPageControl", "-_setIndicatorImage:toEnabled:index:", all},
    {"SBIconListView", "+iconColumnsForInterfaceOrientation:", all},
    {"SBIconListView", "+iconRowsForInterfaceOrientation:", all},
    {"SBIconListView", "+maxIcons", all},
    {"SBIconListView", "+maxVisibleIconRowsInterfaceOrientation:", all},
    {"SBIconListView", "-horizontalIconPadding", all},
    {"SBIconListView", "-iconAtPoint:index:proposedOrder:grabbedIcon:", until10},
    {"SBIconListView", "-iconColumnsForCurrentOrientation", all},
    {"SBIconListView", "-iconRowsForCurrentOrientation", all},
    {"SBIconListView", "-iconRowsForSpacingCalculation", all},
    {"SBIconListView", "-icons", all},
    {"SBIconListView", "-iconsInRowForSpacingCalculation", all},
    {"SBIconListView", "-layoutIconsIfNeeded:animationType:", from11},
    {"SBIconListView", "-layoutIconsIfNeeded:domino:", until10},
    {"SBIconListView", "-layoutIconsNow", all},
    {"SBIconListView", "-setFrame:", all},
    {"SBIconListView", "-setIconsNeedLayout", all},
    {"SBIconListView", "-sideIconInset", all},
    {"SBIconListView", "-topIconInset", all},
    {"SBIconListView", "-verticalIconPadding", all},
    {"SBIconListView", "-viewForIcon:", all},
    {"SBIconScrollView", "-setContentOffset:", until9},
    {"SBIconView", "+defaultIconImageSize", all},
    {"SBIconView", "-layoutSubviews", all},
    {"SBLockScreenManager", "+sharedInstance", all},
    {"SBLockScreenManager", "-isLockScreenVisible", from10},
    {"SBLockScreenManager", "-isUILocked", all},
    {"SBLockScreenManager", "-lockScreenViewController", all},
    {"SBLockScreenViewController", "-isLockScreenVisible", until9},
    {"SBLockScreenViewController", "-loadView", until10},
    {"SBLockScreenViewControllerBase", "-isLockScreenVisible", until9},
    {"SBRootIconListView", "-sideIconInset", all},
    {"SBRootIconListView", "-topIconInset", all},
    {"SBUIChevronView", "-initWithColor:", from10},
    {"SBUIChevronView", "-layoutSubviews", from10},
    {"SBUIController", "+sharedInstance", all},
    {"SBUIController", "-activateApplication:", until10},
    {"SBUIController", "-activateApplication:fromIcon:location:", until10},
    {"SBUIController", "-activateApplication:fromIcon:location:activationSettings:actions:", from11},
    {"SBUIController", "-activateApplicationAnimated:", none},
};

// The last dump of the same major version that is not newer, else the first one; before all of them, the
// oldest.
Dumps dumpFor(Version version) {
  std::size_t found = 0;
  for (std::size_t i = 1; i < std::size(dumped); ++i)
    if (dumped[i] <= version || (dumped[i].major == version.major && dumped[found].major < version.major))
      found = i;
  return 1u << found;
}

Dumps current = ios102;
Methods wanted = Methods::real;

}  // namespace

void useClasses(Version version, Methods methodsWanted) {
  current = dumpFor(version);
  wanted = methodsWanted;
}

bool isComplete() { return wanted == Methods::complete; }

const char* superclassOf(const char* className) {
  for (const Parent& row : parents)
    if (row.name == className && row.dumps & current) return row.parent;
  return nullptr;
}

namespace {

Dumps dumpsWith(const char* className, bool ofClass, const char* selector) {
  const auto found = std::ranges::find_if(methods, [&](const Own& row) {
    return row.name == className && (row.method.front() == '+') == ofClass &&
           row.method.substr(1) == selector;
  });
  if (found == std::end(methods))
    throw std::logic_error(fmt::format("{}[{} {}] is not listed", ofClass ? '+' : '-', className, selector));
  return found->dumps;
}

}  // namespace

bool isOnlyNamed(const char* className, bool ofClass, const char* selector) {
  return dumpsWith(className, ofClass, selector) == none;
}

bool hasOwnMethod(const char* className, bool ofClass, const char* selector) {
  return dumpsWith(className, ofClass, selector) & current;
}

}  // namespace sim::springboard
