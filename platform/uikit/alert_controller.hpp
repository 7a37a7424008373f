// UIAlertController and its actions.
#pragma once

#include "platform/uikit/text_field.hpp"
#include "platform/uikit/view_controller.hpp"

// UIAlertControllerStyle
enum : NSInteger { UIAlertControllerStyleActionSheet = 0, UIAlertControllerStyleAlert = 1 };

// UIAlertActionStyle
enum : NSInteger {
  UIAlertActionStyleDefault = 0,
  UIAlertActionStyleCancel = 1,
  UIAlertActionStyleDestructive = 2
};

struct UIAlertAction : bridge::Face<"UIAlertAction", NSObject> {
  static constexpr bridge::ClassMethod<"UIAlertAction", "actionWithTitle:style:handler:",
                                       UIAlertAction(NSString, NSInteger,
                                                     bridge::BlockRef<void(UIAlertAction)>)>
      actionWithTitle_style_handler{};
  MESSAGE Method<"title", NSString()> title;
  MESSAGE Method<"style", NSInteger()> style;
};

struct UIAlertController : bridge::Face<"UIAlertController", UIViewController> {
  static constexpr bridge::ClassMethod<"UIAlertController",
                                       "alertControllerWithTitle:message:preferredStyle:",
                                       UIAlertController(NSString, NSString, NSInteger)>
      alertControllerWithTitle_message_preferredStyle{};
  MESSAGE Method<"title", NSString()> title;
  MESSAGE Method<"message", NSString()> message;
  MESSAGE Method<"preferredStyle", NSInteger()> preferredStyle;
  MESSAGE Method<"addAction:", void(UIAlertAction)> addAction;
  MESSAGE Method<"actions", NSArray()> actions;
  MESSAGE Method<"addTextFieldWithConfigurationHandler:", void(bridge::BlockRef<void(UITextField)>)>
      addTextFieldWithConfigurationHandler;
  MESSAGE Method<"textFields", NSArray()> textFields;
};
