// NSIndexPath.
#pragma once

#include "platform/foundation/object.hpp"

struct NSIndexPath : bridge::Face<"NSIndexPath", NSObject> {
  static constexpr bridge::ClassMethod<"NSIndexPath", "indexPathWithIndex:", NSIndexPath(NSUInteger)>
      indexPathWithIndex{};
  MESSAGE Method<"indexAtPosition:", NSUInteger(NSUInteger)> indexAtPosition;
};
