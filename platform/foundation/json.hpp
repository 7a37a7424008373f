// NSJSONSerialization.
#pragma once

#include "platform/foundation/data.hpp"

struct NSJSONSerialization : bridge::Face<"NSJSONSerialization", NSObject> {
  static constexpr bridge::ClassMethod<"NSJSONSerialization", "JSONObjectWithData:options:error:",
                                       bridge::Object(NSData, NSUInteger, id*)>
      JSONObjectWithData_options_error{};
  static constexpr bridge::ClassMethod<"NSJSONSerialization", "dataWithJSONObject:options:error:",
                                       NSData(bridge::Object, NSUInteger, id*)>
      dataWithJSONObject_options_error{};
};
