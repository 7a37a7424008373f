// How values cross into and out of a message: handles travel as plain object pointers, blocks as plain
// pointers, integers below 32 bits as 32 bits, everything else as it is. No C++ class is ever part of a call
// that the platform makes or receives.
#pragma once

#include "bridge/object.hpp"
#include "bridge/strong.hpp"

namespace bridge {

struct BlockHeader;
template <class Signature>
struct BlockRef;

template <class T>
struct WireFormat {
  static_assert(isDefined<T>, "include the type's own header");
  using Type = T;
  static Type out(T value) { return value; }
  static T in(Type value) { return value; }
};

// Who widens a small integer, the one who passes it or the one who gets it, differs from platform to platform
// and from compiler to compiler. Here both do: what is above its own bits is never believed.
template <class T>
  requires(std::is_integral_v<T> && sizeof(T) < sizeof(int))
struct WireFormat<T> {
  using Type = std::conditional_t<std::is_signed_v<T>, int, unsigned int>;
  static Type out(T value) { return value; }
  static T in(Type value) {
    if constexpr (std::is_same_v<T, bool>)
      return static_cast<unsigned char>(value) != 0;
    else
      return static_cast<T>(value);
  }
};

template <class T>
  requires(std::is_class_v<T> && std::derived_from<T, Object>)
struct WireFormat<T> {
  static_assert(Handle<T>, "a face may not carry two members for the same selector");
  using Type = id;
  static id out(T value) { return value.raw; }
  static T in(id value) { return as<T>(value); }
};

// Only results travel as Strong: the reference goes with them.
template <class T>
struct WireFormat<Strong<T>> {
  using Type = id;
  static id out(Strong<T> value) { return value.leak(); }
  static Strong<T> in(id value) { return adopt<T>(value); }
};

template <class Signature>
struct WireFormat<BlockRef<Signature>> {
  using Type = BlockHeader*;
  static BlockHeader* out(BlockRef<Signature> value) { return value.raw; }
  static BlockRef<Signature> in(BlockHeader* value) { return BlockRef<Signature>{value}; }
};

template <>
struct WireFormat<void> {
  using Type = void;
};

template <class T>
using Wire = typename WireFormat<T>::Type;

// Calls `function` with wired arguments and hands its result back as `R`.
template <class R, class... A>
R callWired(Wire<R> (*function)(id, SEL, Wire<A>...), id self, SEL selector, A... arguments) {
  if constexpr (std::is_void_v<R>)
    function(self, selector, WireFormat<A>::out(arguments)...);
  else
    return WireFormat<R>::in(function(self, selector, WireFormat<A>::out(arguments)...));
}

}  // namespace bridge
