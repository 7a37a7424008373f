// NSObject.
#pragma once

#include "bridge/method.hpp"

struct NSString;

struct NSObject : bridge::Face<"NSObject", bridge::Object> {
  MESSAGE Method<"init", NSObject()> init;
  MESSAGE Method<"dealloc", void()> dealloc;
  MESSAGE Method<"isEqual:", BOOL(bridge::Object)> isEqual;
  MESSAGE Method<"description", NSString()> description;
  MESSAGE Method<"retainCount", NSUInteger()> retainCount;
  MESSAGE Method<"respondsToSelector:", BOOL(SEL)> respondsToSelector;
};
