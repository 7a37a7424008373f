// What two files of one program both use: if anything in the headers could not be shared, it would not link,
// or the two would see different things.
#pragma once

#include "bridge/block.hpp"
#include "bridge/define.hpp"
#include "bridge/replace.hpp"
#include "platform/coregraphics/encoding.hpp"
#include "platform/foundation/string.hpp"

namespace test {

struct Shared : bridge::Face<"TwoFilesShared", NSObject> {
  static constexpr bridge::ClassMethod<"TwoFilesShared", "count", int()> count{};
  MESSAGE Property<"value", int> value;
};
struct SharedState {
  int value = 1;
};
using SharedClass = bridge::Implementation<Shared, SharedState>;

inline int sharedCount(Class) { return 10; }
inline int morevalue(Shared self) { return bridge::original<morevalue>(self) + 100; }

// What the other file sees.
void defineShared();
void installMore();
Class sharedClassSeenByOther();
SharedState* stateSeenByOther(Shared object);
const bridge::Slot* slotSeenByOther();
id stringSeenByOther();
SEL selectorSeenByOther();
bridge::Block<CGRect(CGPoint)> blockOfOther();

}  // namespace test
