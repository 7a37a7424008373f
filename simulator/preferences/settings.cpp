// Settings' window, and what it is opened by.
#include "simulator/preferences/settings.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/preferences/bundle_loading.hpp"
#include "simulator/preferences/list_controller.hpp"
#include "simulator/preferences/look.hpp"
#include "simulator/preferences/navigation.hpp"
#include "simulator/preferences/specifier.hpp"
#include "simulator/preferences/table.hpp"
#include "simulator/preferences/table_cell.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/status_bar.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/base/application.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim::preferences {
namespace {

using bridge::Strong;

constexpr const char* applicationName = "Settings";
constexpr const char* address = "prefs:root=";

// The first page: what the preference loader adds; the system's own pages are not there.
struct RootList : bridge::Face<"PSSettingsList", PSListController> {};
struct RootState {
  Strong<NSArray> rows;
};
using Root = bridge::Implementation<RootList, RootState>;

NSArray rootRows(RootList self) {
  auto& rows = Root::state(self).rows;
  if (!rows) rows = bridge::retained(loaderEntries());
  return rows.get();
}

struct Shown {
  Strong<UIWindow> window;
  Strong<RootList> list;
  Strong<UIViewController> beside;  // the list's own, on tablets
  Strong<UIViewController> pages;   // where pages come: beside the list on tablets, else over it
};
Shown& shown() {
  static auto& current = *new Shown();
  return current;
}

bool isTablet() { return uikit::configuration().idiom == 1; }

void addBeside(UIViewController container, CGSize screen, PSListController list) {
  shown().beside = bridge::retained(makeNavigation({{}, {listWidth, screen.height}}, list, "Settings"_ns));
  const UIView left = shown().beside->view();
  left.autoresizingMask.set(UIViewAutoresizingFlexibleHeight);
  const CGFloat x = listWidth + pixel();
  shown().pages = bridge::retained(makeNavigation({{x, 0}, {screen.width - x, screen.height}}, {}, {}));
  shown().pages->view().autoresizingMask.set(UIViewAutoresizingFlexibleHeight |
                                             UIViewAutoresizingFlexibleWidth);
  container.view().addSubview(left);
  container.view().addSubview(shown().pages->view());
}

Strong<UIWindow> makeWindow() {
  const CGRect screen = UIScreen::mainScreen().bounds();
  Shown& now = shown();
  now = {};
  now.window = bridge::make<UIWindow, &UIView::initWithFrame>(screen);
  now.list = bridge::make<RootList, &NSObject::init>();
  if (isSystemEleven()) setLargeTitle(now.list.get(), "Settings"_ns);
  if (isTablet()) {
    const auto container = bridge::make<UIViewController, &NSObject::init>();
    const auto view = makeBox(screen, separatorColor);
    view->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    container->view.set(view);
    addBeside(container, screen.size, now.list);
    now.window->rootViewController.set(container);
  } else {
    now.pages = bridge::retained(makeNavigation(screen, now.list, "Settings"_ns));
    now.window->rootViewController.set(now.pages);
  }
  pushInto(now.pages, isTablet() ? now.list.get() : PSListController{});
  springboard::showStatusBar(blackColor);
  return now.window;
}

void selectEntry(const std::string& name) {
  const NSArray rows = shown().list->specifiers();
  for (NSUInteger i = 0; i < rows.count(); ++i) {
    const auto row = bridge::as<PSSpecifier>(rows.objectAtIndex(i));
    if (row.name() && name == row.name().UTF8String()) return select(shown().list.get(), row);
  }
  throw UsageError("Settings has no page '" + name + "'");
}

void openAddress(const std::string& url) {
  try {
    openSettings(url.substr(std::string(address).size()));
  } catch (const UsageError&) {
    // An address that leads nowhere opens Settings as it is.
  }
}

}  // namespace

void openSettings(const std::string& page) {
  if (!settingsAreShown()) springboard::openApplication(applicationName);
  selectEntry(page);
}

bool settingsAreShown() {
  const SBApplication application = springboard::shownApplication();
  return application && std::string(applicationName) == application.displayName().UTF8String();
}

void defineSettings() {
  defineSpecifier();
  defineTable();
  defineTableCell();
  defineListControllers();
  defineNavigation();
  Root::define<PSListController>(bridge::method<&PSListController::specifiers, rootRows>());
  springboard::showsWindow(applicationName, makeWindow);
  uikit::takeURLs(address, openAddress);
}

}  // namespace sim::preferences
