// MSHookMessageEx, as strict as the strictest hooking library: a method that is not there ends the process.
#include "simulator/runtime/hooking.hpp"

#include <dlfcn.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "bridge/replace.hpp"
#include "simulator/runtime/export.hpp"

namespace sim {
namespace {

std::vector<Replacement>& all() {
  static auto& made = *new std::vector<Replacement>();
  return made;
}

// What is called by implementations that stand before others.
std::map<IMP, IMP>& interposed() {
  static auto& made = *new std::map<IMP, IMP>();
  return made;
}

IMP behind(IMP implementation) {
  const auto found = interposed().find(implementation);
  return found == interposed().end() ? implementation : found->second;
}

// Those of devices are in memory that the dynamic linker knows nothing of.
std::string libraryOf(IMP implementation) {
  Dl_info found{};
  if (!dladdr(reinterpret_cast<void*>(implementation), &found) || !found.dli_fname) return "a library";
  return std::filesystem::path(found.dli_fname).filename();
}

bool isOrInherits(Class cls, Class ancestor) {
  while (cls && cls != ancestor) cls = class_getSuperclass(cls);
  return cls != nullptr;
}

}  // namespace

const std::vector<Replacement>& replacements() { return all(); }

std::vector<Replacement> replacementsOf(Class cls, SEL selector) {
  std::vector<Replacement> found;
  objc_method* method = cls ? class_getInstanceMethod(cls, selector) : nullptr;
  IMP implementation = method ? behind(method_getImplementation(method)) : nullptr;
  for (;;) {
    const auto made = std::ranges::find_if(all(), [&](const Replacement& each) {
      return each.implementation == implementation && sel_isEqual(each.selector, selector) &&
             isOrInherits(cls, each.cls);
    });
    if (made == all().end() || found.size() == all().size()) break;
    found.push_back(*made);
    implementation = behind(made->previous);
  }
  std::ranges::reverse(found);
  return found;
}

std::string methodName(Class cls, SEL selector) {
  return (objc_getClass(class_getName(cls)) == cls ? "-" : "+") + std::string(sel_getName(selector));
}

IMP interpose(Class cls, SEL selector, IMP own) {
  // A library that came while it stood there calls it.
  if (std::ranges::find(all(), own, &Replacement::previous) != all().end()) return behind(own);
  objc_method* method = class_getInstanceMethod(cls, selector);
  const IMP before = method_getImplementation(method);
  interposed()[own] = before;
  bridge::setImplementation(cls, method, own);
  return before;
}

void withdraw(Class cls, SEL selector, IMP own) {
  objc_method* method = class_getInstanceMethod(cls, selector);
  if (method_getImplementation(method) == own) bridge::setImplementation(cls, method, behind(own));
}

}  // namespace sim

SIMULATOR_EXPORT void MSHookMessageEx(Class cls, SEL selector, IMP implementation, IMP* previous) {
  if (!cls || !selector || !implementation) return;
  objc_method* known = class_getInstanceMethod(cls, selector);
  const std::string library = sim::libraryOf(implementation);
  if (!known) {
    std::fprintf(stderr, "MSHookMessageEx: %s has no method '%s', which %s wants to replace\n",
                 class_getName(cls), sel_getName(selector), library.c_str());
    std::abort();
  }
  // The previous implementation is in place before the new one can run.
  IMP before = method_getImplementation(known);
  if (previous) *previous = before;
  bridge::Slot slot;
  bridge::replaceMethod(cls, selector, implementation, slot);
  sim::all().push_back({cls, selector, implementation, before, library});
}
