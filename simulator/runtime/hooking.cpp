// MSHookMessageEx as the library expects it of the process it is loaded into.
#include "simulator/runtime/hooking.hpp"

#include "bridge/replace.hpp"
#include "simulator/runtime/export.hpp"

namespace sim {
namespace {

HookCount count;

}  // namespace

const HookCount& hookCount() { return count; }

}  // namespace sim

// An unknown class or selector leaves `previous` as it was, as the real one does.
SIMULATOR_EXPORT void MSHookMessageEx(Class cls, SEL selector, IMP implementation, IMP* previous) {
  if (!cls || !selector || !implementation) return;
  bridge::Slot slot;
  // The previous implementation is in place before the new one can run.
  if (objc_method* known = class_getInstanceMethod(cls, selector); known && previous)
    *previous = method_getImplementation(known);
  bridge::replaceMethod(cls, selector, implementation, slot);
  if (!slot.previous && !slot.above) return;
  ++sim::count.replaced;
  if (slot.above) ++sim::count.inherited;
}
