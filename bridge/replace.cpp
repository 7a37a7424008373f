// Installing rows of a method table.
#include "bridge/replace.hpp"

#include <cstdio>

extern "C" {
void free(void* memory);
void* dlsym(void* handle, const char* name);
void* malloc(size_t size);
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

SEL selectorOf(const Row& row) { return sel_registerName(row.method + 1); }

void replaceIn(Class cls, const Row& row, SEL selector, HookFunction hook) {
  row.slot->selector = selector;
  if (hook)
    hook(cls, selector, row.implementation(), &row.slot->previous);
  else
    replaceMethod(cls, selector, row.implementation(), *row.slot);
}

// Both names, for as long as the process lasts; one of them where there is no memory.
const char* together(const char* one, const char* other) {
  if (!one) return other;
  constexpr const char* form = "%s, %s";
  size_t size = static_cast<size_t>(std::snprintf(nullptr, 0, form, one, other)) + 1;
  char* both = static_cast<char*>(malloc(size));
  if (!both) return other;
  std::snprintf(both, size, form, one, other);
  return both;
}

// Replaces what stands in for the row's method, where the class itself lacks that one; answers its name.
const char* replaceSuccessors(Class cls, const Row* row, const Row* end, HookFunction hook) {
  const char* names = nullptr;
  if (row + 1 == end || ownMethod(cls, selectorOf(*row))) return names;
  for (const Row* other = row + 1; other != end; ++other) {
    if (other->wish != Wish::instead) continue;
    SEL selector = selectorOf(*other);
    if (!ownMethod(cls, selector)) continue;
    replaceIn(cls, *other, selector, hook);
    names = together(names, other->method);
  }
  return names;
}

const char* replaceIfThere(Class cls, const Row& row, HookFunction hook) {
  SEL selector = selectorOf(row);
  if (!class_getInstanceMethod(cls, selector)) return outcome::methodMissing;
  replaceIn(cls, row, selector, hook);
  return outcome::replaced;
}

// A row with those that belong to it, which end before `end`.
Outcome carryOut(const Row* row, const Row* end, HookFunction hook) {
  Outcome told = {row->className, row->method, outcome::classMissing, nullptr};
  Class cls = objc_getClass(row->className);
  if (row->method[0] == '+') cls = classOf(reinterpret_cast<id>(cls));
  if (!cls) return told;
  if (row->wish == Wish::added) {
    bool lacked = class_addMethod(cls, selectorOf(*row), row->implementation(), row->types);
    told.outcome = lacked ? outcome::added : outcome::refused;
    return told;
  }
  told.successor = replaceSuccessors(cls, row, end, hook);
  told.outcome = told.successor ? outcome::successor : replaceIfThere(cls, *row, hook);
  for (const Row* other = row + 1; other != end; ++other)
    if (other->wish == Wish::along) replaceIfThere(cls, *other, hook);
  return told;
}

}  // namespace

IMP Slot::implementation() const {
  return previous ? previous : above ? class_getMethodImplementation(above, selector) : nullptr;
}

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

Outcome install(const Row& row) {
  Outcome told;
  install(&row, 1, &told);
  return told;
}

void install(const Row* rows, size_t count, Outcome* outcomes) {
  const HookFunction hook = hookFunction();
  for (const Row *row = rows, *next; row != rows + count; row = next) {
    next = row + 1;
    while (next != rows + count && (next->wish == Wish::instead || next->wish == Wish::along)) ++next;
    *outcomes++ = carryOut(row, next, hook);
  }
}

}  // namespace bridge
