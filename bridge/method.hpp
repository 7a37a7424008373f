// One descriptor per method. Selector, type encoding, send, super-send, the entry of a class table and the
// slot of a replacement all derive from it.
//
//   struct UIView : bridge::Face<"UIView", UIResponder> {
//     MESSAGE Method<"addSubview:", void(UIView)> addSubview;                  view.addSubview(child)
//     static constexpr bridge::ClassMethod<"UIView", "areAnimationsEnabled", BOOL()> areAnimationsEnabled{};
//     MESSAGE OptionalMethod<"setSpacing:", void(double)> setSpacing;          view.setSpacing.ifAnswered(10)
//     MESSAGE Property<"alpha", CGFloat> alpha;                view.alpha(), view.alpha.set(0.5)
//     MESSAGE Property<"hidden", BOOL, "isHidden"> hidden;     a getter with a name of its own
//   };
//
// The C++ name is the selector with "_" between its parts. Selectors of the alloc, new, copy and mutableCopy
// families give a Strong; initialisers are sent by `make` alone, since they take over what they are sent to.
#pragma once

#include <cstring>

#include "bridge/encoding.hpp"

namespace bridge {

// Registers a name and keeps what it has become. Out of line: it happens once and is asked for everywhere.
SEL registered(SEL& place, const char* name);

template <Name Selector>
SEL selector() {
  static constinit SEL cached = nullptr;
  SEL found = loadShared(cached);
  return found ? found : registered(cached, Selector.text);
}

// A selector's family decides who owns the object it answers. Faces mention types that are not complete yet,
// so nothing here may be looked at before a message is sent or implemented.
template <Name Selector, class R>
struct ResultOf {
  static_assert(isDefined<R>, "include the result's own header");
  using Type = R;
};
template <Name Selector, class R>
  requires(familyOf(Selector) != Family::borrowed && std::is_class_v<R> && std::derived_from<R, Object>)
struct ResultOf<Selector, R> {
  using Type = Strong<R>;
};

// What a message is, apart from who gets it.
template <Name Selector, class Signature>
struct Message;

template <Name Selector, class R, class... A>
struct Message<Selector, R(A...)> {
  static_assert(Selector.colons() == sizeof...(A), "the selector's colons do not match its arguments");

  template <class Lazy = R>
  using Result = typename ResultOf<Selector, Lazy>::Type;
  template <class Lazy = R>
  using Shape = Result<Lazy>(A...);
  static constexpr Family family = familyOf(Selector);
  static constexpr auto selectorName = Selector;
  static constexpr const char* name = Selector.text;

  static SEL selector() { return bridge::selector<Selector>(); }
  static constexpr const char* types() { return methodTypes<R, A...>.text; }

  // A message to nil answers nil, zero or an empty structure.
  static auto send(id receiver, A... arguments) {
    if (!receiver) return Result<>();
    constexpr bool inMemory = std::is_class_v<Wire<R>>;
    const SEL sent = selector();
    return call(messenger(receiver, sent, inMemory), receiver, sent, arguments...);
  }

  // The implementation that `cls` has, whatever the receiver's own class overrides.
  static auto sendAs(Class cls, id receiver, A... arguments) {
    if (!receiver) return Result<>();
    const SEL sent = selector();
    return call(class_getMethodImplementation(cls, sent), receiver, sent, arguments...);
  }

  static auto call(IMP implementation, id receiver, SEL sent, A... arguments) {
    using Function = Wire<Result<>> (*)(id, SEL, Wire<A>...);
    return callWired<Result<>, A...>(reinterpret_cast<Function>(implementation), receiver, sent,
                                     arguments...);
  }
};

// The handle that a member of a face is part of: it starts at the same address, hence the member's size.
inline id receiverOf(const void* member) {
  id receiver;
  std::memcpy(&receiver, member, sizeof receiver);
  return receiver;
}

// A member of a face.
template <Name Selector, class Signature>
struct Method;

template <Name Selector, class R, class... A>
struct alignas(id) Method<Selector, R(A...)> : Message<Selector, R(A...)> {
  using Base = Message<Selector, R(A...)>;

  auto operator()(A... arguments) const {
    static_assert(Base::family != Family::initialiser, "initialisers are sent by make");
    return Base::send(receiverOf(this), arguments...);
  }
};

// A member of a face that the class has on some systems only: it is sent to whom answers it, and to nobody
// else.
template <Name Selector, class Signature>
struct OptionalMethod;

template <Name Selector, class R, class... A>
struct alignas(id) OptionalMethod<Selector, R(A...)> : Message<Selector, R(A...)> {
  using Base = Message<Selector, R(A...)>;

  // Nil answers nothing.
  bool isAnswered() const {
    return Message<"respondsToSelector:", BOOL(SEL)>::send(receiverOf(this), Base::selector());
  }

  // Nil, zero or an empty structure where it is not answered.
  auto ifAnswered(A... arguments) const {
    return Base::send(isAnswered() ? receiverOf(this) : nullptr, arguments...);
  }
};

template <size_t Size>
consteval auto capitalised(Name<Size> name) {
  if (name.text[0] >= 'a' && name.text[0] <= 'z') name.text[0] -= 'a' - 'A';
  return name;
}

// A member of a face, like Method, which `&View::color` describes as its getter.
template <Name Text, class Value, Name GetterName = Text>
struct alignas(id) Property : Message<GetterName, Value()> {
  using Getter = Message<GetterName, Value()>;
  using Setter = Message<Name("set") + capitalised(Text) + Name(":"), void(Value)>;
  using ValueType = Value;
  static constexpr const char* propertyName = Text.text;
  static constexpr auto variable = Name("_") + Text;

  auto operator()() const { return Getter::send(receiverOf(this)); }
  void set(Value value) const { Setter::send(receiverOf(this), value); }
};

template <Name ClassName, Name Selector, class Signature>
struct ClassMethod;

template <Name ClassName, Name Selector, class R, class... A>
struct ClassMethod<ClassName, Selector, R(A...)> : Message<Selector, R(A...)> {
  using Base = Message<Selector, R(A...)>;
  static constexpr auto className = ClassName;

  auto operator()(A... arguments) const {
    return Base::send(reinterpret_cast<id>(classNamed<ClassMethod>()), arguments...);
  }

  // To a class that is not known by name: a subclass, or the receiver's own class.
  auto on(Class cls, A... arguments) const { return Base::send(reinterpret_cast<id>(cls), arguments...); }
};

// The descriptor behind `&UIView::frame` or `&UIView::areAnimationsEnabled`.
template <class T>
struct DescriptorType;
template <class C, class D>
struct DescriptorType<D C::*> {
  using Type = D;
  using Owner = C;
  static constexpr bool ofClass = false;
};
template <class D>
struct DescriptorType<const D*> {
  using Type = D;
  static constexpr bool ofClass = true;
};

template <auto Member>
using Descriptor = typename DescriptorType<decltype(Member)>::Type;

template <auto Member>
inline constexpr bool isClassMethod = DescriptorType<decltype(Member)>::ofClass;

// The setter of a property, where a row or a call names a message:
// `super<setterOf<&View::color>>(self, red)`.
template <auto Member>
struct SetterOf {};
template <auto Member>
inline constexpr SetterOf<Member> setterOf{};
template <auto Member>
struct DescriptorType<SetterOf<Member>> {
  using Type = typename Descriptor<Member>::Setter;
  using Owner = typename DescriptorType<decltype(Member)>::Owner;
  static constexpr bool ofClass = false;
};

// A new object that has run no initialiser, of T's class or of one derived from it.
template <class T>
Strong<T> allocate(Class cls = classNamed<T>()) {
  return adopt<T>(Message<"alloc", Object()>::send(reinterpret_cast<id>(cls)).leak());
}

// Sends `self`, which is being set up, an initialiser of its own class, and goes on with what that answers.
template <auto Initialiser, class T, class... A>
Strong<T> initialised(T self, A... arguments) {
  using D = Descriptor<Initialiser>;
  static_assert(D::family == Family::initialiser, "initialised wants an initialiser");
  return adopt<T>(D::send(self.raw, arguments...).leak());
}

// A new object of T's class, or of one derived from it, set up by the initialiser `Initialiser` (a member of
// T's face or of a parent's).
template <class T, auto Initialiser, class... A>
Strong<T> makeOf(Class cls, A... arguments) {
  using D = Descriptor<Initialiser>;
  static_assert(D::family == Family::initialiser, "make wants an initialiser");
  return initialised<Initialiser>(as<T>(allocate<T>(cls).leak()), arguments...);
}

template <class T, auto Initialiser, class... A>
Strong<T> make(A... arguments) {
  return makeOf<T, Initialiser>(classNamed<T>(), arguments...);
}

template <class R, class... A>
constexpr const char* blockSignature() {
  return blockTypes<R, A...>.text;
}

}  // namespace bridge
