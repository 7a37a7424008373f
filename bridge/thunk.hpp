// What the runtime calls for a function of ours: `R f(Self self, A...)`, where Self is a handle, or Class for
// a class method. The function's shape is checked against the method's descriptor.
#pragma once

#include "bridge/method.hpp"

namespace bridge {

template <class Self>
Self receiverAs(id raw) {
  if constexpr (std::is_same_v<Self, Class>)
    return reinterpret_cast<Class>(raw);
  else
    return as<Self>(raw);
}

template <class D, auto Function, class Type = decltype(Function)>
struct Thunk;

template <class D, auto Function, class R, class Self, class... A>
struct Thunk<D, Function, R (*)(Self, A...)> {
  static_assert(std::is_same_v<typename D::template Shape<>, R(A...)>,
                "the function does not have the method's shape");
  using Receiver = Self;

  static Wire<R> entry(id self, SEL, Wire<A>... arguments) {
    if constexpr (std::is_void_v<R>)
      Function(receiverAs<Self>(self), WireFormat<A>::in(arguments)...);
    else
      return WireFormat<R>::out(Function(receiverAs<Self>(self), WireFormat<A>::in(arguments)...));
  }

  static IMP implementation() { return reinterpret_cast<IMP>(&entry); }
};

// `Function` as an implementation of the method that `Member` describes.
template <auto Member, auto Function>
IMP implementationOf() {
  using T = Thunk<Descriptor<Member>, Function>;
  static_assert(std::is_same_v<typename T::Receiver, Class> == isClassMethod<Member>,
                "a class method's function takes a Class, any other a handle");
  return T::implementation();
}

struct MethodEntry {
  bool ofClass;
  const char* selector;
  const char* types;
  IMP implementation;
};

}  // namespace bridge
