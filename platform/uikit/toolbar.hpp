// UIToolbar and the items on it.
#pragma once

#include "platform/foundation/array.hpp"
#include "platform/foundation/string.hpp"
#include "platform/uikit/view.hpp"

// UIBarStyle
enum : NSInteger { UIBarStyleDefault = 0, UIBarStyleBlack = 1, UIBarStyleBlackTranslucent = 2 };

// UIBarButtonItemStyle
enum : NSInteger { UIBarButtonItemStylePlain = 0, UIBarButtonItemStyleDone = 2 };

// UIBarButtonSystemItem
enum : NSInteger { UIBarButtonSystemItemFlexibleSpace = 5 };

struct UIBarButtonItem : bridge::Face<"UIBarButtonItem", NSObject> {
  // The target is not retained.
  MESSAGE
  Method<"initWithTitle:style:target:action:", UIBarButtonItem(NSString, NSInteger, bridge::Object, SEL)>
      initWithTitle_style_target_action;
  MESSAGE
  Method<"initWithBarButtonSystemItem:target:action:", UIBarButtonItem(NSInteger, bridge::Object, SEL)>
      initWithBarButtonSystemItem_target_action;
  MESSAGE Method<"initWithCustomView:", UIBarButtonItem(UIView)> initWithCustomView;
  MESSAGE Method<"title", NSString()> title;
  MESSAGE Method<"style", NSInteger()> style;
  MESSAGE Method<"target", bridge::Object()> target;
  MESSAGE Method<"action", SEL()> action;
  MESSAGE Method<"customView", UIView()> customView;
};

struct UIToolbar : bridge::Face<"UIToolbar", UIView> {
  MESSAGE Property<"barStyle", NSInteger> barStyle;
  MESSAGE Property<"items", NSArray> items;
};
