// Every object's dealloc ends in NSObject's.
#include "simulator/runtime/dealloc.hpp"

#include <vector>

#include "bridge/replace.hpp"
#include "platform/foundation/object.hpp"

namespace sim {
namespace {

std::vector<void (*)(id)>& observers() {
  static auto& list = *new std::vector<void (*)(id)>();
  return list;
}

bridge::Slot slot;

void dealloc(id self, SEL selector) {
  for (auto observer : observers()) observer(self);
  reinterpret_cast<void (*)(id, SEL)>(slot.implementation())(self, selector);
}

}  // namespace

void whenObjectsDie(void (*observer)(id)) {
  if (observers().empty())
    bridge::replaceMethod(bridge::classNamed<NSObject>(), bridge::selector<"dealloc">(),
                          reinterpret_cast<IMP>(&dealloc), slot);
  observers().push_back(observer);
}

}  // namespace sim
