// Archiving an object and making another of what was written.
#pragma once

#include "platform/foundation/object.hpp"

namespace test {

struct Archiver : bridge::Face<"NSKeyedArchiver", NSObject> {
  static constexpr bridge::ClassMethod<"NSKeyedArchiver",
                                       "archivedDataWithRootObject:", NSObject(bridge::Object)>
      archivedDataWithRootObject{};
};
struct Unarchiver : bridge::Face<"NSKeyedUnarchiver", NSObject> {
  static constexpr bridge::ClassMethod<"NSKeyedUnarchiver",
                                       "unarchiveObjectWithData:", bridge::Object(bridge::Object)>
      unarchiveObjectWithData{};
};

// Autoreleased.
inline bridge::Object archivedAndBack(bridge::Object object) {
  return Unarchiver::unarchiveObjectWithData(Archiver::archivedDataWithRootObject(object));
}

}  // namespace test
