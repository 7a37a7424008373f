// Type encodings, derived at compile time from C++ types, in this platform's own letters.
#pragma once

#include "bridge/block.hpp"
#include "bridge/object.hpp"
#include "bridge/strong.hpp"

namespace bridge {

template <class T>
struct Encoding;

// Specialise with `static constexpr auto text = structure<"CGPoint", CGFloat, CGFloat>();` in a type's own
// header.
template <Name Tag, class... Fields>
consteval auto structure() {
  return Name("{") + Tag + Name("=") + (Name("") + ... + Encoding<Fields>::text) + Name("}");
}

template <>
struct Encoding<void> {
  static constexpr Name text = "v";
};
// BOOL is one of these three, by platform.
template <>
struct Encoding<bool> {
  static constexpr Name text = "B";
};
template <>
struct Encoding<unsigned char> {
  static constexpr Name text = "C";
};
template <>
struct Encoding<signed char> {
  static constexpr Name text = "c";
};
template <>
struct Encoding<unsigned short> {
  static constexpr Name text = "S";
};
template <>
struct Encoding<int> {
  static constexpr Name text = "i";
};
template <>
struct Encoding<unsigned int> {
  static constexpr Name text = "I";
};
// A long has the letter of its width.
template <>
struct Encoding<long> {
  static constexpr Name text = sizeof(long) == 8 ? Name("q") : Name("l");
};
template <>
struct Encoding<unsigned long> {
  static constexpr Name text = sizeof(long) == 8 ? Name("Q") : Name("L");
};
template <>
struct Encoding<long long> {
  static constexpr Name text = "q";
};
template <>
struct Encoding<unsigned long long> {
  static constexpr Name text = "Q";
};
template <>
struct Encoding<float> {
  static constexpr Name text = "f";
};
template <>
struct Encoding<double> {
  static constexpr Name text = "d";
};
template <>
struct Encoding<const char*> {
  static constexpr Name text = "r*";
};
template <>
struct Encoding<void*> {
  static constexpr Name text = "^v";
};
template <>
struct Encoding<const void*> {
  static constexpr Name text = "r^v";
};
template <>
struct Encoding<id> {
  static constexpr Name text = "@";
};
template <>
struct Encoding<Class> {
  static constexpr Name text = "#";
};
template <>
struct Encoding<SEL> {
  static constexpr Name text = ":";
};
template <std::derived_from<Object> T>
struct Encoding<T> {
  static constexpr Name text = "@";
};
template <class T>
struct Encoding<Strong<T>> {
  static constexpr Name text = "@";
};
template <class Signature>
struct Encoding<BlockRef<Signature>> {
  static constexpr Name text = "@?";
};
template <class T>
struct Encoding<T*> {
  static constexpr auto text = Name("^") + Encoding<T>::text;
};

// The encoding of a method: result, receiver, selector, arguments; without the offsets, which nobody needs.
template <class R, class... A>
inline constexpr auto methodTypes = Encoding<R>::text + Name("@:") + (Name("") + ... + Encoding<A>::text);

template <class R, class... A>
inline constexpr auto blockTypes = Encoding<R>::text + Name("@?") + (Name("") + ... + Encoding<A>::text);

// Whether two encodings tell the same shapes: offsets, qualifiers, class and structure names and the sign of
// integers as wide as a register do not count.
bool sameShape(const char* one, const char* other);

}  // namespace bridge
