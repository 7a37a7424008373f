// SBIconController: owns the pages, the dock and the page dots, and turns them with the device.
#include "simulator/springboard/icon_controller.hpp"

#include <algorithm>
#include <cmath>

#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/dock_view.hpp"
#include "simulator/springboard/folder.hpp"
#include "simulator/springboard/icon.hpp"
#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/icon_view.hpp"
#include "simulator/springboard/orientation.hpp"
#include "simulator/springboard/stock.hpp"
#include "simulator/springboard/system_class.hpp"
#include "simulator/uikit/views/view_controller.hpp"

namespace sim::springboard {

HomeScreen& homeScreen() {
  static auto& screen = *new HomeScreen();
  return screen;
}

namespace {

constexpr CGFloat pageDotsHeight = 20;  // points, above the dock

using ScrollView = bridge::Implementation<SBIconScrollView>;

struct ControllerState {
  bool editing = false;
};
using Controller = bridge::Implementation<SBIconController, ControllerState>;
using PageDots = bridge::Implementation<SBIconListPageControl>;

// The home screen's view puts its parts in their places whenever its size changes.
struct SBFolderView : bridge::Face<"SBFolderView", UIView> {};
struct SBRootFolderView : bridge::Face<"SBRootFolderView", SBFolderView> {};
using FolderView = bridge::Implementation<SBFolderView>;
using RootFolderView = bridge::Implementation<SBRootFolderView>;

// What the controller is told when the device turns; it hands it on to the messages that UIKit has for it.
struct Turning : bridge::Face<"SBIconController", SBIconController> {
  MESSAGE Method<"_willRotateToInterfaceOrientation:duration:", void(NSInteger, double)> willRotate;
  MESSAGE Method<"_willAnimateRotationToInterfaceOrientation:duration:", void(NSInteger, double)>
      willAnimateRotation;
};

ScrollViewInitialiser scrollViewInitialiser = ScrollViewInitialiser::init;

SBIconController sharedInstance(Class) { return iconController(); }

bridge::Strong<NSObject> init(SBIconController self) { return Controller::super<&NSObject::init>(self); }

bridge::Strong<UIViewController> initWithNibName(SBIconController self, NSString name, NSBundle bundle) {
  return Controller::super<&UIViewController::initWithNibName_bundle>(self, name, bundle);
}

void layoutHomeScreen(SBFolderView self) {
  FolderView::super<&UIView::layoutSubviews>(self);
  HomeScreen& home = homeScreen();
  CGSize size = self.bounds().size;
  CGFloat dock = SBDockView::defaultHeight();
  CGRect page = pageFrame(size, currentOrientation(), dock);
  NSInteger shown = SBIconController::sharedInstance().currentIconListIndex();
  home.scrollView->frame.set(page);
  home.scrollView->contentSize.set(
      {page.size.width * static_cast<CGFloat>(home.pages.size()), page.size.height});
  for (size_t i = 0; i < home.pages.size(); ++i)
    home.pages[i]->frame.set({{page.size.width * static_cast<CGFloat>(i), 0}, page.size});
  home.dockView->frame.set(dockFrame(size, currentOrientation(), dock));
  home.pageDots->frame.set(
      {{0, page.origin.y + page.size.height - pageDotsHeight}, {page.size.width, pageDotsHeight}});
  // The page that was shown stays the page that is shown. Nothing scrolls, so nobody is told.
  home.scrollView->bounds.set({{page.size.width * static_cast<CGFloat>(shown), 0}, page.size});
}

void loadView(SBIconController self) {
  HomeScreen& home = homeScreen();
  auto view = bridge::make<SBRootFolderView, &UIView::initWithFrame>(CGRect{});
  view->autoresizingMask.set(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
  home.scrollView = makeScrollView();
  home.scrollView->delegate.set(view);
  home.scrollView->pagingEnabled.set(YES);
  home.dock = bridge::make<SBDockIconListView, &UIView::initWithFrame>(CGRect{});
  home.folder = bridge::make<SBFolderIconListView, &UIView::initWithFrame>(CGRect{});
  home.dockView = makeDockView(home.dock);
  home.pageDots = bridge::make<SBIconListPageControl, &UIView::initWithFrame>(CGRect{});
  view->addSubview(home.scrollView);
  view->addSubview(home.pageDots);
  view->addSubview(home.dockView);
  self.view.set(view);
}

NSInteger currentIconListIndex(SBIconController) {
  HomeScreen& home = homeScreen();
  CGFloat width = home.scrollView->bounds().size.width;
  return width > 0 ? std::lround(home.scrollView->contentOffset().x / width) : 0;
}

SBRootIconListView pageAt(NSInteger index) {
  auto& pages = homeScreen().pages;
  if (index < 0 || index >= static_cast<NSInteger>(pages.size())) return {};
  return pages[static_cast<size_t>(index)].get();
}

SBRootIconListView currentRootIconList(SBIconController self) { return pageAt(self.currentIconListIndex()); }

// Pages are made with their icons, so there is nothing to create: an index beyond the last page has no list.
void getListView(SBIconController, id* list, id* folder, id* relativePath, NSIndexPath path, BOOL) {
  if (list) *list = pageAt(static_cast<NSInteger>(path.indexAtPosition(0))).raw;
  if (folder) *folder = nullptr;
  if (relativePath) *relativePath = nullptr;
}

BOOL isEditing(SBIconController self) { return Controller::state(self).editing; }

void setIsEditing(SBIconController self, BOOL editing) {
  Controller::state(self).editing = editing;
  for (auto& page : homeScreen().pages)
    for (auto& view : iconViews(page.get())) showEditingBadge(view.get(), editing);
}

void iconTapped(SBIconController self, SBIconView view) {
  if (self.isEditing()) return;
  SBIcon icon = iconOf(view);
  if (nameOf(icon).isEqualToString(NSString::stringWithUTF8String(folderName)))
    openFolder();
  else
    launch(icon);
}

// The dots follow the page that is most on screen.
void didScroll(SBFolderView, UIScrollView) {
  homeScreen().pageDots->currentPage.set(SBIconController::sharedInstance().currentIconListIndex());
}

void scrollTo(SBIconScrollView self, CGPoint offset) {
  ScrollView::super<bridge::setterOf<&UIScrollView::contentOffset>>(self, offset);
}

void willTransition(SBIconController self, CGSize size, bridge::Object coordinator) {
  Controller::super<&uikit::SizeTransitions::viewWillTransitionToSize_withTransitionCoordinator>(self, size,
                                                                                                 coordinator);
}

void willRotate(SBIconController self, NSInteger to, double duration) {
  self.willRotateToInterfaceOrientation_duration(to, duration);
}

void willAnimateRotation(SBIconController self, NSInteger to, double duration) {
  self.willAnimateRotationToInterfaceOrientation_duration(to, duration);
}

void rotated(SBIconController self, NSInteger from) {
  Controller::super<&UIViewController::didRotateFromInterfaceOrientation>(self, from);
}

void didRotate(SBIconController self, NSInteger from) { self.didRotateFromInterfaceOrientation(from); }

// With every method there is, a control that has the older message shows its dots by it.
void setIndicator(SBIconListPageControl self, UIImageView indicator, BOOL enabled, NSInteger page) {
  if (self._setIndicatorImage_toEnabled.isAnswered())
    self._setIndicatorImage_toEnabled.ifAnswered(indicator, enabled);
  else
    PageDots::super<&SBIconListPageControl::_setIndicatorImage_toEnabled_index>(self, indicator, enabled,
                                                                                page);
}

void setUnnumberedIndicator(SBIconListPageControl self, UIImageView indicator, BOOL enabled) {
  PageDots::super<&SBIconListPageControl::_setIndicatorImage_toEnabled_index>(self, indicator, enabled, 0);
}

// How many icons go on a page: the stock grid's places, unless the grid in force has fewer.
size_t pageCapacity(SBRootIconListView page) {
  Grid stock = stockGrid(ListKind::root, currentOrientation());
  auto rows = static_cast<NSInteger>(page.iconRowsForCurrentOrientation());
  auto columns = static_cast<NSInteger>(page.iconColumnsForCurrentOrientation());
  NSInteger places = std::min<NSInteger>(static_cast<NSInteger>(stock.rows) * stock.columns, rows * columns);
  return static_cast<size_t>(std::max<NSInteger>(1, places));
}

std::vector<bridge::Strong<SBIcon>> makeIcons(const std::vector<std::string>& names) {
  std::vector<bridge::Strong<SBIcon>> icons;
  for (auto& name : names) icons.push_back(makeIcon(name));
  return icons;
}

SBRootIconListView addPage() {
  HomeScreen& home = homeScreen();
  auto page = bridge::make<SBRootIconListView, &UIView::initWithFrame>(CGRect{});
  setPage(page.get(), static_cast<int>(home.pages.size()));
  home.scrollView->addSubview(page);
  home.pages.push_back(page);
  return page.get();
}

}  // namespace

SBIconController iconController() {
  static const id shared =
      (hasOwnMethod("SBIconController", false, "init")
           ? bridge::as<NSObject>(bridge::make<SBIconController, &NSObject::init>().leak())
           : bridge::as<NSObject>(bridge::make<SBIconController, &UIViewController::initWithNibName_bundle>(
                                      NSString{}, NSBundle{})
                                      .leak()))
          .raw;
  return bridge::as<SBIconController>(shared);
}

void useScrollViewInitialiser(ScrollViewInitialiser used) { scrollViewInitialiser = used; }

bridge::Strong<SBIconScrollView> makeScrollView() {
  if (scrollViewInitialiser == ScrollViewInitialiser::initWithFrame)
    return bridge::make<SBIconScrollView, &UIView::initWithFrame>(CGRect{});
  return bridge::make<SBIconScrollView, &NSObject::init>();
}

// Its view is the screen's size, whose sides change places.
void tellWillRotate(NSInteger to, double duration) {
  const CGSize size = iconController().view().bounds().size;
  bridge::as<uikit::SizeTransitions>(iconController())
      .viewWillTransitionToSize_withTransitionCoordinator({size.height, size.width}, {});
  bridge::as<Turning>(iconController()).willRotate(to, duration);
}

void tellWillAnimateRotation(NSInteger to, double duration) {
  bridge::as<Turning>(iconController()).willAnimateRotation(to, duration);
}

void tellDidRotate(NSInteger from) { iconController()._didRotateFromInterfaceOrientation(from); }

void fillHomeScreen(const Icons& icons, int leastPages) {
  HomeScreen& home = homeScreen();
  home.folderIcons = icons.folder;
  auto left = makeIcons(icons.home);
  size_t next = 0;
  do {
    SBRootIconListView page = addPage();
    size_t taken = std::min(pageCapacity(page), left.size() - next);
    auto from = left.begin() + static_cast<ptrdiff_t>(next);
    setIcons(page, {from, from + static_cast<ptrdiff_t>(taken)});
    next += taken;
  } while (next < left.size() || static_cast<int>(home.pages.size()) < leastPages);
  setIcons(home.dock.get(), makeIcons(icons.dock));
  setIcons(home.folder.get(), makeIcons(icons.folder));
  home.pageDots->numberOfPages.set(static_cast<NSInteger>(home.pages.size()));
  home.scrollView->superview().setNeedsLayout();
}

void defineIconController() {
  using Face = SBIconController;
  defineSystemClass<ScrollView>(own<bridge::setterOf<&UIScrollView::contentOffset>, scrollTo>());
  defineSystemClass<PageDots>(
      own<&SBIconListPageControl::_setIndicatorImage_toEnabled_index, setIndicator>(),
      own<&SBIconListPageControl::_setIndicatorImage_toEnabled, setUnnumberedIndicator>());
  defineSystemClass<FolderView>(own<&UIView::layoutSubviews, layoutHomeScreen>(),
                                own<&UIScrollViewDelegate::scrollViewDidScroll, didScroll>());
  defineSystemClass<RootFolderView>();
  defineSystemClass<Controller>(
      own<&Face::sharedInstance, sharedInstance>(), own<&NSObject::init, init>(),
      own<&UIViewController::initWithNibName_bundle, initWithNibName>(),
      own<&UIViewController::loadView, loadView>(),
      own<&uikit::SizeTransitions::viewWillTransitionToSize_withTransitionCoordinator, willTransition>(),
      own<&Turning::willRotate, willRotate>(), own<&Turning::willAnimateRotation, willAnimateRotation>(),
      own<&Face::_didRotateFromInterfaceOrientation, didRotate>(),
      own<&UIViewController::didRotateFromInterfaceOrientation, rotated>(),
      own<&IconTaps::iconTapped, iconTapped>(), own<&Face::currentIconListIndex, currentIconListIndex>(),
      own<&Face::currentRootIconList, currentRootIconList>(), own<&Face::isEditing, isEditing>(),
      own<&Face::setIsEditing, setIsEditing>(),
      own<&Face::getListView_folder_relativePath_forIndexPath_createIfNecessary, getListView>());
}

}  // namespace sim::springboard
