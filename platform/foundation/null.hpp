// NSNull, which stands for nothing in lists and tables.
#pragma once

#include "platform/foundation/object.hpp"

struct NSNull : bridge::Face<"NSNull", NSObject> {
  static constexpr bridge::ClassMethod<"NSNull", "null", NSNull()> null{};
};
