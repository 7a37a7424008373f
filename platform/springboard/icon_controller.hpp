// SBIconController, which owns the home screen.
#pragma once

#include "platform/foundation/index_path.hpp"
#include "platform/springboard/icon_list_view.hpp"
#include "platform/uikit/view_controller.hpp"

struct SBIconController : bridge::Face<"SBIconController", UIViewController> {
  static constexpr bridge::ClassMethod<"SBIconController", "sharedInstance", SBIconController()>
      sharedInstance{};
  // How it is told that the device has turned, and from where.
  MESSAGE Method<"_didRotateFromInterfaceOrientation:", void(NSInteger)> _didRotateFromInterfaceOrientation;
  MESSAGE Method<"currentIconListIndex", NSInteger()> currentIconListIndex;
  MESSAGE Method<"isEditing", BOOL()> isEditing;
  MESSAGE Method<"setIsEditing:", void(BOOL)> setIsEditing;
  MESSAGE Method<"currentRootIconList", SBRootIconListView()> currentRootIconList;
  // The first three arguments receive what was found and may be null.
  MESSAGE Method<"getListView:folder:relativePath:forIndexPath:createIfNecessary:",
                 void(id*, id*, id*, NSIndexPath, BOOL)>
      getListView_folder_relativePath_forIndexPath_createIfNecessary;
};
