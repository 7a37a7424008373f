// The home screen's controller.
#pragma once

#include <string>
#include <vector>

#include "platform/springboard/dock.hpp"
#include "platform/springboard/icon_controller.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "platform/springboard/page_control.hpp"

namespace sim::springboard {

// The icons that a home screen shows, by name: those of its pages, in order, those of its dock and of its
// folder.
struct Icons {
  std::vector<std::string> home, dock, folder;
};

// What the home screen is made of, for whoever looks at it from outside.
struct HomeScreen {
  bridge::Strong<SBIconScrollView> scrollView;
  std::vector<bridge::Strong<SBRootIconListView>> pages;
  bridge::Strong<SBDockView> dockView;
  bridge::Strong<SBDockIconListView> dock;
  bridge::Strong<SBFolderIconListView> folder;
  std::vector<std::string> folderIcons;  // the names of the folder's icons
  bridge::Strong<SBIconListPageControl> pageDots;
};

HomeScreen& homeScreen();

// The controller, made at the first call by the initialiser that its class has.
SBIconController iconController();

// Of the controller, sent by an icon's view that was tapped.
struct IconTaps : bridge::Face<"SBIconController", SBIconController> {
  MESSAGE Method<"iconTapped:", void(SBIconView)> iconTapped;
};

// By which initialiser SpringBoard makes its scroll views: no class dump tells.
enum class ScrollViewInitialiser { init, initWithFrame };
void useScrollViewInitialiser(ScrollViewInitialiser used);
bridge::Strong<SBIconScrollView> makeScrollView();

// What SpringBoard tells the controller when the device turns.
void tellWillRotate(NSInteger to, double duration);
void tellWillAnimateRotation(NSInteger to, double duration);
void tellDidRotate(NSInteger from);

// Fills the home screen. A page takes as many icons as its stock grid has places, or fewer when the grid in
// force has fewer; there are as many pages as that takes, and no fewer than `leastPages`. The dock takes as
// many as it holds.
void fillHomeScreen(const Icons& icons, int leastPages);

// The name of the folder on the first page.
inline constexpr const char* folderName = "Extras";

void defineIconController();

}  // namespace sim::springboard
