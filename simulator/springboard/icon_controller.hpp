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

// Fills the home screen. A page takes as many icons as its stock grid has places, or fewer when the grid in
// force has fewer; there are as many pages as that takes, and no fewer than `leastPages`. The dock takes as
// many as it holds.
void fillHomeScreen(const Icons& icons, int leastPages);

// The name of the folder on the first page.
inline constexpr const char* folderName = "Extras";

void defineIconController();

}  // namespace sim::springboard
