// A string as a template argument: selectors, class names and constant strings are told apart at compile
// time.
#pragma once

#include <cstddef>

namespace bridge {

template <size_t Size>
struct Name {
  char text[Size];

  consteval Name(const char (&string)[Size]) {
    for (size_t i = 0; i < Size; ++i) text[i] = string[i];
  }

  static constexpr size_t length = Size - 1;

  constexpr size_t colons() const {
    size_t count = 0;
    for (char c : text) count += c == ':';
    return count;
  }

  constexpr bool ascii() const {
    for (char c : text)
      if (static_cast<unsigned char>(c) > 127) return false;
    return true;
  }
};

template <size_t One, size_t Other>
consteval auto operator+(const Name<One>& one, const Name<Other>& other) {
  char joined[One + Other - 1];
  for (size_t i = 0; i < One - 1; ++i) joined[i] = one.text[i];
  for (size_t i = 0; i < Other; ++i) joined[One - 1 + i] = other.text[i];
  return Name<One + Other - 1>(joined);
}

// What a selector's first word says about who owns the result.
enum class Family { borrowed, made, initialiser };

template <size_t Size>
consteval Family familyOf(const Name<Size>& selector) {
  size_t start = 0;
  while (selector.text[start] == '_') ++start;
  // A family's word ends where the next one begins: "copyItem" is a copy, "copying" is not.
  auto starts = [&](const char* word) {
    size_t i = 0;
    for (; word[i]; ++i)
      if (start + i >= Size || selector.text[start + i] != word[i]) return false;
    char next = selector.text[start + i];
    return next < 'a' || next > 'z';
  };
  if (starts("init")) return Family::initialiser;
  if (starts("alloc") || starts("new") || starts("copy") || starts("mutableCopy")) return Family::made;
  return Family::borrowed;
}

}  // namespace bridge
