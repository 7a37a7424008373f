// Functions whose results are below 32 bits: Apple's callees widen them, and the slice believes it.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "bridge/runtime.hpp"

struct CGFont;

extern "C" {
bool CTFontManagerRegisterGraphicsFont(CGFont* font, id* error);
unsigned char CFPreferencesSynchronize(id application, id user, id host);
}

namespace device::loader {

template <auto Function>
struct Widened;
template <class R, class... A, R (*Function)(A...)>
struct Widened<Function> {
  static uint32_t call(A... arguments) { return static_cast<uint32_t>(Function(arguments...)); }
};

template <auto Function>
void* widened() {
  return reinterpret_cast<void*>(&Widened<Function>::call);
}

// By the linker names of the imports that they stand for.
inline std::map<std::string, void*> widenedFunctions() {
  return {
      {"_CFPreferencesSynchronize", widened<CFPreferencesSynchronize>()},
      {"_CTFontManagerRegisterGraphicsFont", widened<CTFontManagerRegisterGraphicsFont>()},
      {"_class_addIvar", widened<class_addIvar>()},
      {"_class_addMethod", widened<class_addMethod>()},
      {"_sel_isEqual", widened<sel_isEqual>()},
  };
}

}  // namespace device::loader
