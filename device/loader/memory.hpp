// A slice in this process's memory, ready to run.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "device/loader/layout.hpp"

namespace device::loader {

// What an import is bound to. Null when there is nothing of that name.
using Resolver = std::function<void*(const std::string& symbol)>;

// Fills pages of its own, on a boundary of the largest pages that devices have, and protects them. Throws
// Refusal, naming the import, when `resolve` finds nothing. What is loaded stays. Answers where the image
// starts.
uint8_t* intoMemory(const Layout& layout, const Resolver& resolve);

// Every initialiser, in order, each by way of what `callable` makes of it.
void initialise(const Layout& layout, uint8_t* base, void* (*callable)(void* code));

}  // namespace device::loader
