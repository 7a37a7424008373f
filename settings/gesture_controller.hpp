// RQGestureController: stands between SpringBoard's gestures, the Quick Settings panel and the stores.
#pragma once

#include "bridge/property.hpp"
#include "platform/foundation/dictionary.hpp"
#include "platform/uikit/view.hpp"

namespace tilo {

struct RQPopupView;

struct RQGestureController : bridge::Face<"RQGestureController", NSObject> {
  static constexpr bridge::ClassMethod<"RQGestureController", "sharedInstance", RQGestureController()>
      sharedInstance{};
  MESSAGE Property<"gestureView", UIView> gestureView;
  // The panel that was opened last, kept after it closes.
  MESSAGE Property<"popView", RQPopupView> popView;
  // The selected preset, its "value" being its position; nil until one was found.
  MESSAGE Property<"currentPreset", NSDictionary> currentPreset;
  // The very dictionary of ConfigurationManager.
  MESSAGE Property<"rootObj", NSMutableDictionary> rootObj;
  MESSAGE Method<"update", void()> update;
  // Opens a new panel, unless one is on screen or the settings "enabled" and "quick" are not both on.
  MESSAGE Method<"showPopup", void()> showPopup;
  // Makes the preset at that position the current one; without such a preset the current one stays.
  MESSAGE Method<"updateConfigWithValue:", void(int)> updateConfigWithValue;
  MESSAGE Method<"savePrefsWithKey:value:", void(NSString, bridge::Object)> savePrefsWithKey_value;
};

extern bridge::Strong<RQGestureController> gestController;

void defineGestureController();

}  // namespace tilo
