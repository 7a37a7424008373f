// Properties of a class table: getter and setter in one row.
//
//   Button::property<&BButton::color, &State::color>()     of a value kept in the state
//   property<&BButton::color, color, setColor>()           with accessors of one's own
//
// The class gets a record of each, with the attributes that a compiler writes: T@"UIColor",&,N,V_color.
#pragma once

#include "bridge/thunk.hpp"

namespace bridge {

// What becomes of an object that is set.
enum class Keeping { assigned, retained, copied };

template <class Value>
inline constexpr Keeping usualKeeping = Keeping::assigned;
template <std::derived_from<Object> Value>
inline constexpr Keeping usualKeeping<Value> = Keeping::retained;
template <class Signature>
inline constexpr Keeping usualKeeping<BlockRef<Signature>> = Keeping::copied;

// An attribute's type names the object's class or protocol, which a method's encoding does not.
template <class Value>
inline constexpr auto attributeType = Encoding<Value>::text;
template <class Value>
  requires requires { Value::className; }
inline constexpr auto attributeType<Value> = Name("@\"") + Value::className + Name("\"");
template <class Value>
  requires requires { Value::protocolName; }
inline constexpr auto attributeType<Value> = Name("@\"<") + Value::protocolName + Name(">\"");

struct PropertyEntry {
  const char *name, *type, *variable;
  Keeping keeping;
  bool atomic;
  MethodEntry getter, setter;
};

// A row of a class table: both accessors, and the property's record.
template <auto Member, auto Getter, auto Setter>
PropertyEntry property(Keeping keeping = usualKeeping<typename Descriptor<Member>::ValueType>,
                       bool atomic = false) {
  using P = Descriptor<Member>;
  using S = typename P::Setter;
  return {P::propertyName,
          attributeType<typename P::ValueType>.text,
          P::variable.text,
          keeping,
          atomic,
          {false, P::name, P::types(), Thunk<P, Getter>::implementation()},
          {false, S::name, S::types(), Thunk<S, Setter>::implementation()}};
}

void addProperty(Class cls, const PropertyEntry& entry);

}  // namespace bridge
