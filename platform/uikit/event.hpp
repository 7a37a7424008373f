// UIEvent.
#pragma once

#include "platform/foundation/set.hpp"

struct UIView;

struct UIEvent : bridge::Face<"UIEvent", NSObject> {
  MESSAGE Method<"timestamp", double()> timestamp;  // seconds
  MESSAGE Method<"allTouches", NSSet()> allTouches;
  MESSAGE Method<"touchesForView:", NSSet(UIView)> touchesForView;
};
