// UIResponder.
#pragma once

#include "platform/foundation/set.hpp"

struct UIEvent;

struct UIResponder : bridge::Face<"UIResponder", NSObject> {
  MESSAGE Method<"nextResponder", UIResponder()> nextResponder;
  // The set holds UITouch objects.
  MESSAGE Method<"touchesBegan:withEvent:", void(NSSet, UIEvent)> touchesBegan_withEvent;
  MESSAGE Method<"touchesMoved:withEvent:", void(NSSet, UIEvent)> touchesMoved_withEvent;
  MESSAGE Method<"touchesEnded:withEvent:", void(NSSet, UIEvent)> touchesEnded_withEvent;
  MESSAGE Method<"touchesCancelled:withEvent:", void(NSSet, UIEvent)> touchesCancelled_withEvent;
};
