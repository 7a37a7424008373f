// Replacing methods of classes that are not ours.
//
//   CGFloat verticalIconPadding(SBIconListView self) { return original<verticalIconPadding>(self) + 1; }
//   install(replace<SBIconListView, &SBIconListView::verticalIconPadding, verticalIconPadding>());
//
// `original<f>` is the only way from a replacement to what it replaced.
#pragma once

#include "bridge/thunk.hpp"

namespace bridge {

// Where a replacement finds what it replaced: the previous implementation, or, for a method that the class
// only inherited, the class to look it up in at the time of the call.
struct Slot {
  IMP previous = nullptr;
  Class above = nullptr;
  SEL selector = nullptr;

  IMP implementation() const {
    return previous ? previous : above ? class_getMethodImplementation(above, selector) : nullptr;
  }
};

template <auto Function>
inline constinit Slot slot{};

template <auto Function, class Type = decltype(Function)>
struct Original;

template <auto Function, class R, class Self, class... A>
struct Original<Function, R (*)(Self, A...)> {
  R operator()(Self self, A... arguments) const {
    id raw;
    if constexpr (std::is_same_v<Self, Class>)
      raw = reinterpret_cast<id>(self);
    else
      raw = self.raw;
    IMP previous = slot<Function>.implementation();
    if (!previous) return R();
    return callWired<R, A...>(reinterpret_cast<Wire<R> (*)(id, SEL, Wire<A>...)>(previous), raw,
                              slot<Function>.selector, arguments...);
  }
};

// What `Function` replaced. Nothing, zero or nil while it replaces nothing.
template <auto Function>
inline constexpr Original<Function> original{};

// One row of a method table: a replacement (with a slot) or an addition (with a type string of its own).
struct Row {
  const char* className;
  bool ofClass;
  SEL selector;
  const char* types;
  IMP implementation;
  Slot* slot;
};

template <class T, auto Member, auto Function>
Row replace() {
  using D = Descriptor<Member>;
  return {T::className.text,
          isClassMethod<Member>,
          D::selector(),
          D::types(),
          implementationOf<Member, Function>(),
          &slot<Function>};
}

// `types` goes out as given on every platform.
template <class T, auto Member, auto Function>
Row add(const char* types) {
  using D = Descriptor<Member>;
  return {T::className.text,
          isClassMethod<Member>,
          D::selector(),
          types,
          implementationOf<Member, Function>(),
          nullptr};
}

// Installs a row, replacements through the process's hooking library when it has one. A class or method that
// is not there leaves everything as it was.
void install(const Row& row);

// Replaces a method without a hooking library. A method that `cls` inherits is added to `cls`, its parent
// keeps its own.
void replaceMethod(Class cls, SEL selector, IMP implementation, Slot& slot);

using HookFunction = void (*)(Class cls, SEL selector, IMP implementation, IMP* previous);

// MSHookMessageEx, where the process has it.
HookFunction hookFunction();

}  // namespace bridge
