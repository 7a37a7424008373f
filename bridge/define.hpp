// Classes of ours, each declared as one table.
//
//   using Logger = bridge::Implementation<DPHLogger, LoggerState>;
//   Logger::define<NSObject>(bridge::method<&DPHLogger::info, info>(), …);
//
// Its rows are methods, properties (property.hpp) and protocols: `bridge::adopts<UIScrollViewDelegate>()`.
//
// An object's C++ state lives inside it. It is built when it is first asked for and destroyed by dealloc; an
// object that never ran its initialiser has none, and dies quietly. A class with state has no dealloc of its
// own in its table: what is to be done at the end is the state's destructor's.
#pragma once

#include <initializer_list>
#include <new>

#include "bridge/property.hpp"

namespace bridge {

// A row of a class table: `Function` answers the method that `Member` describes.
template <auto Member, auto Function>
MethodEntry method() {
  using D = Descriptor<Member>;
  return {isClassMethod<Member>, D::name, D::types(), implementationOf<Member, Function>()};
}

struct ProtocolEntry {
  const char* name;
};

// A row of a class table: the class conforms to the protocol, where the platform has one of that name.
template <class P>
ProtocolEntry adopts() {
  return {P::protocolName.text};
}

// A new class, not yet known by its name; null when there is no such superclass. Where somebody has taken the
// name it gets one that no compiler can give: "BButton.2".
Class openClass(Class superclass, const char* name);
// Makes `name`, which must be one that no compiler can give, known to the process; false when it is already.
bool claim(const char* name);
void addMethod(Class cls, const MethodEntry& entry);
void addProtocol(Class cls, const ProtocolEntry& entry);

inline void addRow(Class cls, const MethodEntry& row) { addMethod(cls, row); }
inline void addRow(Class cls, const PropertyEntry& row) { addProperty(cls, row); }
inline void addRow(Class cls, const ProtocolEntry& row) { addProtocol(cls, row); }
// Of rows that only a class in the making can get.
inline void addVariable(Class, const auto&) {}
// Room for `size` bytes of state in every instance, aligned to 8 bytes. The variable's name comes from
// the class's, since a subclass may not repeat a name that it inherits.
void addState(Class cls, size_t size);
ptrdiff_t stateOffset(Class cls);

struct NoState {};

template <class T, class State = NoState>
class Implementation {
 public:
  static_assert(std::is_same_v<State, NoState> || !std::is_empty_v<State>,
                "a state without members has no place");

  // The class once it is defined.
  static inline constinit Class cls = nullptr;

  // Out of line: every accessor begins with it.
  [[gnu::noinline]] static State& state(T self) {
    Slot& slot = slotOf(self.raw);
    if (!slot.built) {
      new (slot.bytes) State();
      slot.built = true;
    }
    return *std::launder(reinterpret_cast<State*>(slot.bytes));
  }

  // The parent's implementation of a method that this class overrides.
  template <auto Member, class... A>
  static auto super(T self, A... arguments) {
    return Descriptor<Member>::sendAs(class_getSuperclass(cls), self.raw, arguments...);
  }

  // The parent's initialiser. It takes over `self`; what it answers, nil too, is what to go on with.
  template <auto Initialiser, class... A>
  static Strong<T> superInit(T self, A... arguments) {
    static_assert(Descriptor<Initialiser>::family == Family::initialiser, "superInit wants an initialiser");
    return adopt<T>(super<Initialiser>(self, arguments...).leak());
  }

  template <auto Member, class... A>
  static auto superclassMethod(Class self, A... arguments) {
    Class meta = classOf(reinterpret_cast<id>(cls));
    return Descriptor<Member>::sendAs(class_getSuperclass(meta), reinterpret_cast<id>(self), arguments...);
  }

  // Of a value kept in the state. A Strong is retained by the setter; nothing is copied or locked. `Told` are
  // called with the object once it is set.
  template <auto Member, auto Field, auto... Told>
  static PropertyEntry property() {
    using Value = typename Descriptor<Member>::ValueType;
    constexpr bool owned = isStrong<std::remove_cvref_t<decltype(std::declval<State&>().*Field)>>;
    return bridge::property<Member, &get<Value, Field>, &set<Value, Field, Told...>>(
        owned ? Keeping::retained : Keeping::assigned);
  }

  template <class Parent>
  static void define(auto... rows) {
    defineUnder(classNamed<Parent>(), rows...);
  }

  // Nothing is defined under null. Rows come when the class is known: GCC's runtime compares the names of all
  // methods that are there for each that comes to a class in the making, later their numbers.
  static void defineUnder(Class parent, auto... rows) {
    Class made = openClass(parent, T::className.text);
    if (!made) return;
    if constexpr (!std::is_empty_v<State>) {
      static_assert(alignof(State) <= 8);
      addState(made, sizeof(Slot));
      addMethod(made, MethodEntry{false, Dealloc::name, Dealloc::types(),
                                  Thunk<Dealloc, &dealloc>::implementation()});
    }
    (addVariable(made, rows), ...);
    objc_registerClassPair(made);
    (addRow(made, rows), ...);
    offset = stateOffset(made);
    cls = made;
    storeShared(classOfName<T::className>, made);
  }

 private:
  using Dealloc = Message<"dealloc", void()>;

  struct Slot {
    alignas(State) unsigned char bytes[sizeof(State)];
    bool built;
  };

  static inline constinit ptrdiff_t offset = 0;

  static Slot& slotOf(id self) { return *reinterpret_cast<Slot*>(reinterpret_cast<char*>(self) + offset); }

  static void dealloc(T self) {
    Slot& slot = slotOf(self.raw);
    if (slot.built) std::launder(reinterpret_cast<State*>(slot.bytes))->~State();
    slot.built = false;  // the parent's dealloc may send messages still
    Dealloc::sendAs(class_getSuperclass(cls), self.raw);
  }

  template <class Kept>
  static constexpr bool isStrong = false;
  template <class U>
  static constexpr bool isStrong<Strong<U>> = true;

  template <class Value, auto Field>
  static Value get(T self) {
    return state(self).*Field;
  }

  template <class Value, auto Field, auto... Told>
  static void set(T self, Value value) {
    auto& kept = state(self).*Field;
    if constexpr (isStrong<std::remove_cvref_t<decltype(kept)>>)
      kept = retained(value);
    else
      kept = value;
    (Told(self), ...);
  }
};

}  // namespace bridge
