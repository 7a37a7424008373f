// Where a call between the slice and the process needs more than a jump: one implementation for each
// processor.
#pragma once

#include <map>
#include <string>

#include "device/loader/layout.hpp"

namespace device::loader {

// Entry points by the linker names of the imports that they stand for.
std::map<std::string, void*> crossings();

// A function of the process, none of whose arguments takes 64 bits, as the slice calls it. Data as it stands.
void* asImport(void* found);

// A function of the slice, whose arguments are pointers or integers, as the process calls it.
void* asFunction(void* code);

// A handler outside finds its way through the slice's frames from now on, where its processor's slices have
// tables for that.
void letUnwind(const Layout& layout, const uint8_t* base);

// The slice's function that the process calls by that address; itself when it is none.
void* ofSlice(void* function);

}  // namespace device::loader
