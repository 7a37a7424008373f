// What the whole library shares for the life of SpringBoard. Written and read on the main thread only.
#pragma once

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"
#include "platform/springboard/icon_controller.hpp"
#include "settings/gesture_controller.hpp"

namespace tilo {

// The current preference values, nil when there are none: the very dictionary of ConfigurationManager, looked
// into at every use. An absent key reads as NO or zero.
extern bridge::Strong<NSMutableDictionary> rootObj;

extern bridge::Strong<RQGestureController> gestController;

// SpringBoard's icon controller, once a page has asked for its horizontal padding.
extern bridge::Strong<SBIconController> cont;

inline NSNumber setting(NSString key) { return bridge::as<NSNumber>(rootObj->objectForKey(key)); }

}  // namespace tilo
