// SBIconScrollView: the scroll view in which the pages of the home screen, or of a folder, stand side by
// side.
#pragma once

#include "platform/foundation/dictionary.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "platform/uikit/scroll_view.hpp"

// Everything here is the library's own, added to SpringBoard's class.
struct SBIconScrollView : bridge::Face<"SBIconScrollView", UIScrollView> {
  // Handlers of messages from outside: the message's name, its user info.
  MESSAGE Method<"listCellPreferencesUpdated:withUserInfo:", void(NSString, NSDictionary)>
      listCellPreferencesUpdated_withUserInfo;
  MESSAGE Method<"preferencesUpdated:withUserInfo:", void(NSString, NSDictionary)>
      preferencesUpdated_withUserInfo;
  MESSAGE Method<"layout:", void(bridge::Object)> layout;  // a notification's handler
  MESSAGE Method<"swipe:", void(bridge::Object)> swipe;    // the action of both recognisers
  // The upward swipe and the two-finger tap that open the panel; nil on scroll views that got none.
  MESSAGE Method<"swipeGesture", UISwipeGestureRecognizer()> swipeGesture;
  MESSAGE Method<"setSwipeGesture:", void(UISwipeGestureRecognizer)> setSwipeGesture;
  MESSAGE Method<"tapGesture", UITapGestureRecognizer()> tapGesture;
  MESSAGE Method<"setTapGesture:", void(UITapGestureRecognizer)> setTapGesture;
};
