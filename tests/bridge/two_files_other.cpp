// The other of the two files.
#include "tests/bridge/two_files.hpp"

namespace test {

void defineShared() {
  if (SharedClass::cls) return;
  SharedClass::define<NSObject>(SharedClass::property<&Shared::value, &SharedState::value>(),
                                bridge::method<&Shared::count, sharedCount>());
}

void installMore() { bridge::install(bridge::replace<Shared, &Shared::value, morevalue>()); }

Class sharedClassSeenByOther() { return SharedClass::cls; }
SharedState* stateSeenByOther(Shared object) { return &SharedClass::state(object); }
const bridge::Slot* slotSeenByOther() { return &bridge::slot<morevalue>; }
id stringSeenByOther() { return "seen by both files"_ns.raw; }
SEL selectorSeenByOther() { return bridge::Descriptor<&Shared::value>::selector(); }
bridge::Block<CGRect(CGPoint)> blockOfOther() {
  return bridge::Block<CGRect(CGPoint)>([](CGPoint point) { return CGRect{point, {1, 1}}; });
}

}  // namespace test
