// Accessors of properties that any thread may use: what a getter answers stays alive in the caller's pool,
// whatever another thread stores meanwhile.
//
//   atomicProperty<Class, &Face::mode, &Face::setMode, &State::mode>()
//
// makes both of a value kept in the state of `Class`. A Strong is retained by the setter.
#pragma once

#include "bridge/define.hpp"
#include "controls/locked.hpp"

namespace tilo {

template <class Stored>
struct AtomicValue {
  using Borrowed = Stored;
};
template <class T>
struct AtomicValue<bridge::Strong<T>> {
  using Borrowed = T;
};

template <class C, class T, class State, class Stored, Stored State::* Field>
struct AtomicAccess {
  using Borrowed = typename AtomicValue<Stored>::Borrowed;

  static Stored load(T self) {
    const Locked lock(self.raw);
    return C::state(self).*Field;
  }

  // The old value is released when the lock is open again: its dealloc may do anything.
  static void store(T self, Stored value) {
    const Locked lock(self.raw);
    std::swap(C::state(self).*Field, value);
  }

  static Borrowed get(T self) {
    if constexpr (std::is_same_v<Borrowed, Stored>)
      return load(self);
    else
      return load(self).autoreleased();
  }

  static void set(T self, Borrowed value) {
    if constexpr (std::is_same_v<Borrowed, Stored>)
      store(self, value);
    else
      store(self, retained(value));
  }

  static void setCopy(T self, Borrowed value) {
    store(self, bridge::Message<"copy", Borrowed()>::send(value.raw));
  }
};

template <class C, auto Getter, auto Field>
struct AtomicAccessOf;
template <class C, auto Getter, class State, class Stored, Stored State::* Field>
struct AtomicAccessOf<C, Getter, Field> {
  using Type =
      AtomicAccess<C, typename bridge::DescriptorType<decltype(Getter)>::Owner, State, Stored, Field>;
};

template <class C, auto Getter, auto Setter, auto Field>
bridge::PropertyEntry atomicProperty() {
  using Access = typename AtomicAccessOf<C, Getter, Field>::Type;
  return {bridge::method<Getter, &Access::get>(), bridge::method<Setter, &Access::set>()};
}

// The setter keeps a copy.
template <class C, auto Getter, auto Setter, auto Field>
bridge::PropertyEntry atomicCopyProperty() {
  using Access = typename AtomicAccessOf<C, Getter, Field>::Type;
  return {bridge::method<Getter, &Access::get>(), bridge::method<Setter, &Access::setCopy>()};
}

}  // namespace tilo
