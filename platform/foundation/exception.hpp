// NSException.
#pragma once

#include "platform/foundation/string.hpp"

struct NSException : bridge::Face<"NSException", NSObject> {
  static constexpr bridge::ClassMethod<"NSException", "exceptionWithName:reason:userInfo:",
                                       NSException(NSString, NSString, bridge::Object)>
      exceptionWithName_reason_userInfo{};
  MESSAGE Method<"name", NSString()> name;
  MESSAGE Method<"reason", NSString()> reason;
  MESSAGE Method<"raise", void()> raise;  // does not return
};
