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

  IMP implementation() const;
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

// "-name:" or "+name:".
template <class D>
inline constexpr auto signedName = Name("-") + D::selectorName;
template <Name ClassName, Name Selector, class Signature>
inline constexpr auto signedName<ClassMethod<ClassName, Selector, Signature>> = Name("+") + Selector;

// What a row of a method table asks for. The last two belong to the row before them, whose class they share:
// a method to replace instead of the row's where the class itself lacks that one and has this one of its own,
// and one to replace along with it, of which nothing is told.
enum class Wish : uint8_t { replaced, added, instead, along };

// The implementation is what the function answers: addresses of functions of other types are no constants.
struct Row {
  Wish wish;
  const char* className;
  const char* method;
  const char* types;
  IMP (*implementation)();
  Slot* slot;
};

template <auto Member, auto Function>
consteval Row rowOf(Wish wish, const char* className, const char* types, Slot* slot) {
  return {wish, className, signedName<Descriptor<Member>>.text, types, implementationOf<Member, Function>,
          slot};
}

template <class T, auto Member, auto Function>
consteval Row replace() {
  return rowOf<Member, Function>(Wish::replaced, T::className.text, nullptr, &slot<Function>);
}

// `types` goes out as given on every platform.
template <class T, auto Member, auto Function>
consteval Row add(const char* types) {
  return rowOf<Member, Function>(Wish::added, T::className.text, types, nullptr);
}

template <auto Member, auto Function>
consteval Row instead() {
  return rowOf<Member, Function>(Wish::instead, nullptr, nullptr, &slot<Function>);
}

template <auto Member, auto Function>
consteval Row along() {
  return rowOf<Member, Function>(Wish::along, nullptr, nullptr, &slot<Function>);
}

namespace outcome {
inline constexpr char replaced[] = "replaced";
inline constexpr char added[] = "added";
inline constexpr char refused[] = "refused";  // the class has a method of its own where one was to be added
inline constexpr char successor[] = "successor";
inline constexpr char classMissing[] = "class missing";
inline constexpr char methodMissing[] = "method missing";
}  // namespace outcome

// What became of a row, in plain C: one of the words above, and what was replaced instead, or null. Where
// these are two methods, both are named, with a comma between them.
struct Outcome {
  const char* className;
  const char* method;
  const char* outcome;
  const char* successor;
};

// Installs rows in their order, replacements through the process's hooking library when it has one, and tells
// what became of each, those left out that belong to others. Methods that the class has not, itself or from
// its parents, are not handed to that library: some end the process then.
void install(const Row* rows, size_t count, Outcome* outcomes);
Outcome install(const Row& row);

// Replaces a method without a hooking library. A method that `cls` inherits is added to `cls`, its parent
// keeps its own.
void replaceMethod(Class cls, SEL selector, IMP implementation, Slot& slot);

using HookFunction = void (*)(Class cls, SEL selector, IMP implementation, IMP* previous);

// MSHookMessageEx, where the process has it.
HookFunction hookFunction();

}  // namespace bridge
