// Key-value coding and observing, which every object offers.
#pragma once

#include "platform/foundation/dictionary.hpp"

struct NSKeyValueObserving : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"valueForKey:", bridge::Object(NSString)> valueForKey;
  MESSAGE Method<"setValue:forKey:", void(bridge::Object, NSString)> setValue_forKey;
  // The observer is not retained.
  MESSAGE Method<"addObserver:forKeyPath:options:context:", void(bridge::Object, NSString, NSUInteger, void*)>
      addObserver_forKeyPath_options_context;
  MESSAGE Method<"removeObserver:forKeyPath:", void(bridge::Object, NSString)> removeObserver_forKeyPath;
  // Sent to the observer, on the thread of the change.
  MESSAGE Method<"observeValueForKeyPath:ofObject:change:context:",
                 void(NSString, bridge::Object, NSDictionary, void*)>
      observeValueForKeyPath_ofObject_change_context;
};
