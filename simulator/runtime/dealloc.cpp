// Every object's dealloc ends in NSObject's.
#include "simulator/runtime/dealloc.hpp"

#include <array>
#include <atomic>
#include <cstdlib>

#include "bridge/replace.hpp"
#include "platform/foundation/object.hpp"

namespace sim {
namespace {

// Objects die on any thread while observers are still being added.
constinit std::array<std::atomic<void (*)(id)>, 8> observers{};
constinit std::atomic<std::size_t> count = 0;

bridge::Slot slot;

void dealloc(id self, SEL selector) {
  for (const auto& place : observers)
    if (auto* observer = place.load(std::memory_order_acquire)) observer(self);
  reinterpret_cast<void (*)(id, SEL)>(slot.implementation())(self, selector);
}

}  // namespace

void whenObjectsDie(void (*observer)(id)) {
  const std::size_t place = count++;
  if (place == observers.size()) std::abort();  // more than the simulator has
  if (place == 0)
    bridge::replaceMethod(bridge::classNamed<NSObject>(), bridge::selector<"dealloc">(),
                          reinterpret_cast<IMP>(&dealloc), slot);
  observers[place].store(observer, std::memory_order_release);
}

}  // namespace sim
