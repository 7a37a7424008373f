// The controllers of Settings' pages, and their rows' cells.
#pragma once

#include "platform/foundation/bundle.hpp"
#include "platform/foundation/index_path.hpp"
#include "platform/preferences/specifier.hpp"
#include "platform/uikit/label.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "platform/uikit/view_controller.hpp"

// A specifier may name a class of its own below this one as its "cellClass".
struct PSTableCell : bridge::Face<"PSTableCell", UIView> {
  MESSAGE Method<"initWithStyle:reuseIdentifier:specifier:", PSTableCell(NSInteger, NSString, PSSpecifier)>
      initWithStyle_reuseIdentifier_specifier;
  // Shows what the specifier's value is now.
  MESSAGE Method<"refreshCellContentsWithSpecifier:", void(PSSpecifier)> refreshCellContentsWithSpecifier;
  // At the right end.
  MESSAGE Method<"setAccessoryView:", void(UIView)> setAccessoryView;
  MESSAGE Method<"contentView", UIView()> contentView;
  MESSAGE Method<"specifier", PSSpecifier()> specifier;
};

struct PSViewController : bridge::Face<"PSViewController", UIViewController> {
  MESSAGE Property<"specifier", PSSpecifier> specifier;
  MESSAGE Method<"readPreferenceValue:", bridge::Object(PSSpecifier)> readPreferenceValue;
  MESSAGE Method<"setPreferenceValue:specifier:", void(bridge::Object, PSSpecifier)>
      setPreferenceValue_specifier;
};

struct PSListController : bridge::Face<"PSListController", PSViewController> {
  // Kept in the instance variable `_specifiers`, which whoever overrides this fills.
  MESSAGE Method<"specifiers", NSArray()> specifiers;
  MESSAGE Method<"loadSpecifiersFromPlistName:target:", NSArray(NSString, bridge::Object)>
      loadSpecifiersFromPlistName_target;
  // Where the property list is looked for.
  MESSAGE Method<"bundle", NSBundle()> bundle;
  // Asks for the specifiers, or for the value of one, anew.
  MESSAGE Method<"reloadSpecifiers", void()> reloadSpecifiers;
  MESSAGE Method<"reloadSpecifier:", void(PSSpecifier)> reloadSpecifier;
  MESSAGE Method<"tableView:cellForRowAtIndexPath:", PSTableCell(UIView, NSIndexPath)>
      tableView_cellForRowAtIndexPath;
};

// The page of a list of choices: its specifier is the list's.
struct PSListItemsController : bridge::Face<"PSListItemsController", PSListController> {};
