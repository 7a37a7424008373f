// Installing rows of a method table.
#include "bridge/replace.hpp"

extern "C" {
void free(void* memory);
void* dlsym(void* handle, const char* name);
}

namespace bridge {
namespace {

// The method that the class itself has, not its parents; a class method is looked for in the metaclass.
objc_method* ownMethod(Class cls, SEL selector) {
  unsigned int count = 0;
  objc_method** list = class_copyMethodList(cls, &count);
  objc_method* found = nullptr;
  for (unsigned int i = 0; i < count && !found; ++i)
    if (sel_isEqual(method_getName(list[i]), selector)) found = list[i];
  free(list);
  return found;
}

}  // namespace

HookFunction hookFunction() {
#ifdef __APPLE__
  void* everywhere = reinterpret_cast<void*>(-2);
#else
  void* everywhere = nullptr;
#endif
  return reinterpret_cast<HookFunction>(dlsym(everywhere, "MSHookMessageEx"));
}

void replaceMethod(Class cls, SEL selector, IMP implementation, Slot& slot) {
  slot.selector = selector;
  if (objc_method* own = ownMethod(cls, selector)) {
    slot.previous = method_getImplementation(own);
    setImplementation(cls, own, implementation);
    return;
  }
  objc_method* inherited = class_getInstanceMethod(cls, selector);
  if (!inherited) return;
  slot.above = class_getSuperclass(cls);
  class_addMethod(cls, selector, implementation, method_getTypeEncoding(inherited));
}

void install(const Row& row) {
  Class cls = objc_getClass(row.className);
  if (row.ofClass) cls = classOf(reinterpret_cast<id>(cls));
  if (!row.slot) {
    if (cls) class_addMethod(cls, row.selector, row.implementation, row.types);
    return;
  }
  row.slot->selector = row.selector;
  if (!cls) return;
  if (HookFunction hook = hookFunction())
    hook(cls, row.selector, row.implementation, &row.slot->previous);
  else
    replaceMethod(cls, row.selector, row.implementation, *row.slot);
}

}  // namespace bridge
