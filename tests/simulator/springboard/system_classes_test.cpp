// SpringBoard's classes are those of the system version: their parents, and which methods are theirs.
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/springboard/lock_screen.hpp"
#include "tests/support/home.hpp"

namespace {

struct System {
  const char *version, *device;
  size_t column;  // of the tables below

  friend void PrintTo(const System& system, std::ostream* stream) { *stream << system.version; }
};

// The versions between those that are known count as the nearest of their major version.
constexpr System systems[] = {
    {"8.4", "iPhone 6", 0},   {"9.0", "iPhone 6", 0},    {"9.2", "iPhone 6", 0},
    {"9.3", "iPad Air 2", 1}, {"9.3.5", "iPhone 6", 1},  {"10.0", "iPhone 6", 2},
    {"10.1", "iPhone 6", 2},  {"10.2", "iPad Air 2", 3}, {"10.3.3", "iPhone 6", 3},
    {"11.0", "iPhone 6", 4},  {"11.1", "iPhone 6", 4},   {"11.4.1", "iPad Air 2", 4},
    {"12.0", "iPhone 6", 5},  {"12.1", "iPad Air 2", 5}, {"12.5.7", "iPhone 6", 5},
};

class SystemClasses : public testing::TestWithParam<System> {
 protected:
  test::Home home{
      {"--stock", "--springboard", "real", "--device", GetParam().device, "--ios", GetParam().version}};

  static Class classOrMeta(const char* name, char kind) {
    Class cls = objc_getClass(name);
    return kind == '+' ? bridge::classOf(reinterpret_cast<id>(cls)) : cls;
  }

  // o: the class's own, i: inherited, -: not there.
  static char standing(const char* name, const char* method) {
    Class cls = classOrMeta(name, method[0]);
    SEL selector = sel_registerName(method + 1);
    if (!cls || !class_getInstanceMethod(cls, selector)) return '-';
    unsigned int count = 0;
    objc_method** list = class_copyMethodList(cls, &count);
    bool own = false;
    for (unsigned int i = 0; i < count; ++i) own |= sel_isEqual(method_getName(list[i]), selector);
    std::free(list);
    return own ? 'o' : 'i';
  }
};

TEST_P(SystemClasses, HaveTheParentsOfTheVersion) {
  struct Row {
    const char* name;
    const char* parents[6];  // in 9.2, 9.3, 10.1, 10.2, 11.1, 12.2
  };
  constexpr const char *button = "UIButton", *homeButton = "SBHomeScreenButton", *view = "UIView";
  constexpr const char *base = "SBLockScreenViewControllerBase", *controller = "UIViewController";
  constexpr Row rows[] = {
      {"SBRootIconListView",
       {"SBIconListView", "SBIconListView", "SBIconListView", "SBIconListView", "SBIconListView",
        "SBIconListView"}},
      {"SBDockIconListView",
       {"SBRootIconListView", "SBRootIconListView", "SBRootIconListView", "SBRootIconListView",
        "SBRootIconListView", "SBRootIconListView"}},
      {"SBIconImageView", {view, view, view, view, view, view}},
      {"SBCloseBoxView", {button, button, button, button, homeButton, homeButton}},
      {"SBXCloseBoxView", {"", "", "", "", "SBCloseBoxView", "SBCloseBoxView"}},
      {"SBChevronView", {view, view, "", "", "", ""}},
      {"SBUIChevronView", {"", "", view, view, view, view}},
      {"SBLockScreenViewController", {base, base, base, base, "", ""}},
      {"SBDashBoardViewController", {"", "", base, base, base, base}},
      {base, {"SBAlert", "SBAlert", "SBAlert", "SBAlert", controller, controller}},
      {"SBIconController", {controller, controller, controller, controller, controller, controller}},
  };
  for (const Row& row : rows) {
    Class cls = objc_getClass(row.name);
    EXPECT_STREQ(cls ? class_getName(class_getSuperclass(cls)) : "", row.parents[GetParam().column])
        << row.name;
  }
}

TEST_P(SystemClasses, HaveTheMethodsOfTheVersion) {
  struct Row {
    const char *name, *method;
    const char* standing;  // in 9.2, 9.3, 10.1, 10.2, 11.1, 12.2
  };
  constexpr Row rows[] = {
      {"SBIconImageView", "-layoutSubviews", "oooooo"},
      {"SBIconImageView", "+cornerRadius", "oooooo"},
      {"SBIconImageView", "-showsSquareCorners", "oooooo"},
      {"SBIconListView", "-iconRowsForSpacingCalculation", "oooooo"},
      {"SBIconListView", "-iconRowsForCurrentOrientation", "oooooo"},
      {"SBIconListView", "-iconColumnsForCurrentOrientation", "oooooo"},
      {"SBIconListView", "+iconRowsForInterfaceOrientation:", "oooooo"},
      {"SBIconListView", "+iconColumnsForInterfaceOrientation:", "oooooo"},
      {"SBIconListView", "-verticalIconPadding", "oooooo"},
      {"SBIconListView", "-horizontalIconPadding", "oooooo"},
      {"SBIconListView", "-layoutSubviews", "iiiiii"},
      {"SBFolderIconListView", "+iconRowsForInterfaceOrientation:", "iiiiii"},
      {"SBRootIconListView", "-sideIconInset", "oooooo"},
      {"SBRootIconListView", "-topIconInset", "oooooo"},
      {"SBIconLabelImageParameters", "-shadowColor", "------"},
      {"SBIconLabelImageParameters", "-textColor", "oooooo"},
      {"SBUIController", "-activateApplicationAnimated:", "------"},
      {"SBUIController", "-activateApplication:", "oooo--"},
      {"SBUIController", "-activateApplication:fromIcon:location:", "oooo--"},
      {"SBUIController", "-activateApplication:fromIcon:location:activationSettings:actions:", "----oo"},
      {"SBIconListPageControl", "-_setIndicatorImage:toEnabled:index:", "oooooo"},
      {"SBIconListPageControl", "-_setIndicatorImage:toEnabled:", "------"},
      {"SBIconLabelImage", "+_rectWithDrawing:inRect:fromParameters:", "oooooo"},
      {"SBIconScrollView", "-setContentOffset:", "ooiiii"},
      {"SBIconScrollView", "-init", "iiiiii"},
      {"SBIconScrollView", "-initWithFrame:", "iiiiii"},
      {"SBIconScrollView", "-touchesEnded:withEvent:", "iiiiii"},
      {"SBIconScrollView", "-touchesMoved:withEvent:", "iiiiii"},
      {"SBDockIconListView", "-layoutSubviews", "iiiiii"},
      {"SBDockIconListView", "-effectiveSpacing", "----oo"},
      {"SBDockIconListView", "-spacing", "----oo"},
      {"SBDockIconListView", "-setSpacing:", "----oo"},
      {"SBDockIconListView", "-iconAtPoint:index:proposedOrder:grabbedIcon:", "oooo--"},
      {"SBDockIconListView", "-iconsInRowForSpacingCalculation", "oooooo"},
      {"SBDockIconListView", "+maxIcons", "iiiioo"},
      {"SBDockIconListView", "+iconRowsForInterfaceOrientation:", "oooooo"},
      {"SBDockIconListView", "+maxVisibleIconRowsInterfaceOrientation:", "iiiioo"},
      {"SBIconListView", "-layoutIconsIfNeeded:domino:", "oooo--"},
      {"SBIconListView", "-layoutIconsIfNeeded:animationType:", "----oo"},
      {"SBIconController", "-init", "ooooii"},
      {"SBIconController", "-initWithNibName:bundle:", "iiiioo"},
      {"SBIconController", "-viewDidAppear:", "iiiiii"},
      {"SBIconController", "-didRotateFromInterfaceOrientation:", "iiiiii"},
      {"SBIconController", "-_didRotateFromInterfaceOrientation:", "oooooo"},
      {"SBIconController", "-isEditing", "oooooo"},
      {"SBIconController", "-currentRootIconList", "oooooo"},
      {"SBIconController", "-currentIconListIndex", "oooooo"},
      {"SBIconController", "-getListView:folder:relativePath:forIndexPath:createIfNecessary:", "oooooo"},
      {"SBDockView", "+defaultHeight", "oooooo"},
      {"SBDockView", "-setBackgroundAlpha:", "oooooo"},
      {"SBLockScreenManager", "-isLockScreenVisible", "--oooo"},
      {"SBLockScreenManager", "-isUILocked", "oooooo"},
      {"SBLockScreenManager", "-lockScreenViewController", "oooooo"},
      {"SBLockScreenViewController", "-isLockScreenVisible", "oo----"},
      {"SBLockScreenViewControllerBase", "-isLockScreenVisible", "oo----"},
      {"SBDashBoardViewController", "-isLockScreenVisible", "------"},
      {"SBChevronView", "-initWithColor:", "oo----"},
      {"SBUIChevronView", "-initWithColor:", "--oooo"},
      {"SBIcon", "-displayName", "-ooooo"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(standing(row.name, row.method), row.standing[GetParam().column])
        << row.name << ' ' << row.method;
}

INSTANTIATE_TEST_SUITE_P(Versions, SystemClasses, testing::ValuesIn(systems));

class CompleteClasses : public testing::TestWithParam<System> {};

// Of what the library replaces, and of what it sends.
TEST_P(CompleteClasses, AnswerEverythingThatTheLibraryNames) {
  test::Home home(
      {"--stock", "--springboard", "complete", "--device", GetParam().device, "--ios", GetParam().version});
  auto answers = [](const char* name, const char* selector) {
    return class_getInstanceMethod(objc_getClass(name), sel_registerName(selector)) != nullptr;
  };
  for (auto [name, selector] : std::initializer_list<std::pair<const char*, const char*>>{
           {"SBIconLabelImageParameters", "shadowColor"},
           {"SBUIController", "activateApplicationAnimated:"},
           {"SBIconListPageControl", "_setIndicatorImage:toEnabled:index:"},
           {"SBIconListPageControl", "_setIndicatorImage:toEnabled:"},
           {"SBIconScrollView", "setContentOffset:"},
           {"SBDockIconListView", "effectiveSpacing"},
           {"SBDockIconListView", "spacing"},
           {"SBDockIconListView", "setSpacing:"},
           {"SBDockIconListView", "iconAtPoint:index:proposedOrder:grabbedIcon:"},
           {"SBIconListView", "layoutIconsIfNeeded:domino:"},
           {"SBIconListView", "layoutIconsIfNeeded:animationType:"},
           {"SBLockScreenManager", "isLockScreenVisible"}})
    EXPECT_TRUE(answers(name, selector)) << name << ' ' << selector;
  bridge::Object controller = SBLockScreenManager::sharedInstance().lockScreenViewController();
  EXPECT_TRUE(
      class_getInstanceMethod(bridge::classOf(controller.raw), sel_registerName("isLockScreenVisible")));
}

INSTANTIATE_TEST_SUITE_P(Versions, CompleteClasses, testing::ValuesIn(systems));

}  // namespace
