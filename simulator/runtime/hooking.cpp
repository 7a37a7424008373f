// MSHookMessageEx, as strict as the strictest hooking library: a method that is not there ends the process.
#include "simulator/runtime/hooking.hpp"

#include <cstdio>
#include <cstdlib>

#include "bridge/replace.hpp"
#include "simulator/runtime/export.hpp"

namespace sim {
namespace {

int replaced = 0;

}  // namespace

int replacedMethods() { return replaced; }

}  // namespace sim

SIMULATOR_EXPORT void MSHookMessageEx(Class cls, SEL selector, IMP implementation, IMP* previous) {
  if (!cls || !selector || !implementation) return;
  objc_method* known = class_getInstanceMethod(cls, selector);
  if (!known) {
    std::fprintf(stderr, "MSHookMessageEx: %s has no method '%s'\n", class_getName(cls),
                 sel_getName(selector));
    std::abort();
  }
  // The previous implementation is in place before the new one can run.
  if (previous) *previous = method_getImplementation(known);
  bridge::Slot slot;
  bridge::replaceMethod(cls, selector, implementation, slot);
  ++sim::replaced;
}
