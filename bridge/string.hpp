// Constant strings: "enabled"_ns costs nothing to use. On Apple it is the very object a compiler would lay
// out; elsewhere it is made at first use and kept.
#pragma once

#include "bridge/object.hpp"

#ifdef __APPLE__
extern "C" int __CFConstantStringClassReference[];
#endif

namespace bridge {

#ifdef __APPLE__
// The layout that compilers give to constant strings; 0x7c8 marks it as never freed, of one byte a character.
struct ConstantString {
  const void* isa;
  int flags;
  const char* bytes;
  long length;
};

template <Name Text>
inline constinit ConstantString constantString{__CFConstantStringClassReference, 0x7c8, Text.text,
                                               Text.length};
#endif

template <Name Text>
id constant() {
  static_assert(Text.ascii(), "constant strings are ASCII");
#ifdef __APPLE__
  return reinterpret_cast<id>(&constantString<Text>);
#else
  static constinit id cached = nullptr;
  id made = loadShared(cached);
  if (!made) storeShared(cached, made = immortalString(Text.text));
  return made;
#endif
}

}  // namespace bridge
