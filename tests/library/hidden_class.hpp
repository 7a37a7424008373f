// A class that the library does not find, while the home screen, which has it, does.
#pragma once

#include <dlfcn.h>

#include <cstring>
#include <string_view>

namespace test {

inline const char* hiddenClass = nullptr;

// The library's code, or a slice's, of which this machine's linker knows nothing.
inline bool isCodeOfTheLibrary(const void* code) {
  Dl_info found{};
  return !dladdr(code, &found) || std::string_view(found.dli_fname).ends_with("/Tilo.dylib");
}

inline bool isHidden(const char* className, const void* caller) {
  return hiddenClass && std::strcmp(className, hiddenClass) == 0 && isCodeOfTheLibrary(caller);
}

}  // namespace test
