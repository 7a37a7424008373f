// CPDistributedMessagingCenter: messages between processes.
#pragma once

#include "platform/foundation/dictionary.hpp"

struct CPDistributedMessagingCenter : bridge::Face<"CPDistributedMessagingCenter", NSObject> {
  // The same centre for the same name throughout the process.
  static constexpr bridge::ClassMethod<"CPDistributedMessagingCenter",
                                       "centerNamed:", CPDistributedMessagingCenter(NSString)>
      centerNamed{};
  // The selector takes the message's name and its user info. The target is not retained.
  MESSAGE Method<"registerForMessageName:target:selector:", void(NSString, bridge::Object, SEL)>
      registerForMessageName_target_selector;
  // From now on this process gets the messages to this centre, on the thread that calls this.
  MESSAGE Method<"runServerOnCurrentThread", void()> runServerOnCurrentThread;
  // The user info consists of property-list objects. NO when nobody serves the centre.
  MESSAGE Method<"sendMessageName:userInfo:", BOOL(NSString, NSDictionary)> sendMessageName_userInfo;
};
