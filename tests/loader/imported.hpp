// Functions as the slice has them.
#pragma once

#include "device/loader/imports.hpp"

namespace test {

template <class Function>
Function* imported(const char* symbol) {
  return reinterpret_cast<Function*>(device::loader::importNamed(symbol));
}

}  // namespace test
