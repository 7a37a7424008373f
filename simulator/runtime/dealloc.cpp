// Every object's dealloc ends in NSObject's.
#include "simulator/runtime/dealloc.hpp"

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>

#include "bridge/replace.hpp"
#include "platform/foundation/object.hpp"

namespace sim {
namespace {

// Objects die on any thread while observers are still being added.
class Observers {
 public:
  void add(void (*observer)(id)) {
    const std::size_t place = count++;
    if (place == all.size()) std::abort();  // more than the simulator has
    all[place].store(observer, std::memory_order_release);
  }
  void tell(id object) const {
    for (const auto& place : all)
      if (auto* observer = place.load(std::memory_order_acquire)) observer(object);
  }

 private:
  std::array<std::atomic<void (*)(id)>, 8> all{};
  std::atomic<std::size_t> count = 0;
};

constinit Observers ofAll, ofMarked;

// Objects are marked by a few bits of their addresses, for good: the next object in that place counts as
// well.
constinit std::array<std::atomic<bool>, 1 << 16> marks{};

std::atomic<bool>& markOf(id object) {
  const auto address = reinterpret_cast<std::uintptr_t>(object);
  return marks[(address >> 4 ^ address >> 20) % marks.size()];
}

bridge::Slot slot;

void dealloc(id self, SEL selector) {
  ofAll.tell(self);
  if (markOf(self).load(std::memory_order_relaxed)) ofMarked.tell(self);
  reinterpret_cast<void (*)(id, SEL)>(slot.implementation())(self, selector);
}

void watch() {
  static const bool watching = [] {
    bridge::replaceMethod(bridge::classNamed<NSObject>(), bridge::selector<"dealloc">(),
                          reinterpret_cast<IMP>(&dealloc), slot);
    return true;
  }();
  (void)watching;
}

}  // namespace

void whenObjectsDie(void (*observer)(id)) {
  watch();
  ofAll.add(observer);
}

void whenMarkedObjectsDie(void (*observer)(id)) {
  watch();
  ofMarked.add(observer);
}

void mark(id object) { markOf(object).store(true, std::memory_order_relaxed); }

}  // namespace sim
