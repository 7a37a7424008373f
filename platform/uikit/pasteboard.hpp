// UIPasteboard.
#pragma once

#include "platform/foundation/string.hpp"

struct UIPasteboard : bridge::Face<"UIPasteboard", NSObject> {
  static constexpr bridge::ClassMethod<"UIPasteboard", "generalPasteboard", UIPasteboard()>
      generalPasteboard{};
  MESSAGE Property<"string", NSString> string;  // nil when something else or nothing was copied
};
