// Accessors of properties that any thread may use: what a getter answers stays alive in the caller's pool,
// whatever another thread stores meanwhile.
//
//   atomicProperty<Class, &Face::mode, &State::mode>()
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

template <class C, auto Member, auto Field>
struct AtomicAccessOf;
template <class C, auto Member, class State, class Stored, Stored State::* Field>
struct AtomicAccessOf<C, Member, Field> {
  using Type =
      AtomicAccess<C, typename bridge::DescriptorType<decltype(Member)>::Owner, State, Stored, Field>;
  static constexpr bridge::Keeping keeping =
      std::is_same_v<typename Type::Borrowed, Stored> ? bridge::Keeping::assigned : bridge::Keeping::retained;
};

template <class C, auto Member, auto Field>
bridge::PropertyEntry atomicProperty() {
  using Access = AtomicAccessOf<C, Member, Field>;
  using Type = typename Access::Type;
  return bridge::property<Member, &Type::get, &Type::set>(Access::keeping, true);
}

// The setter keeps a copy.
template <class C, auto Member, auto Field>
bridge::PropertyEntry atomicCopyProperty() {
  using Access = typename AtomicAccessOf<C, Member, Field>::Type;
  return bridge::property<Member, &Access::get, &Access::setCopy>(bridge::Keeping::copied, true);
}

}  // namespace tilo
