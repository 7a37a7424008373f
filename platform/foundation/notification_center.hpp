// NSNotificationCenter.
#pragma once

#include "platform/foundation/string.hpp"

struct NSNotification : bridge::Face<"NSNotification", NSObject> {
  MESSAGE Method<"name", NSString()> name;
  MESSAGE Method<"object", bridge::Object()> object;
};

struct NSNotificationCenter : bridge::Face<"NSNotificationCenter", NSObject> {
  static constexpr bridge::ClassMethod<"NSNotificationCenter", "defaultCenter", NSNotificationCenter()>
      defaultCenter{};
  MESSAGE Method<"addObserver:selector:name:object:", void(bridge::Object, SEL, NSString, bridge::Object)>
      addObserver_selector_name_object;
  MESSAGE Method<"removeObserver:", void(bridge::Object)> removeObserver;
  MESSAGE Method<"removeObserver:name:object:", void(bridge::Object, NSString, bridge::Object)>
      removeObserver_name_object;
  MESSAGE Method<"postNotificationName:object:", void(NSString, bridge::Object)> postNotificationName_object;
};
