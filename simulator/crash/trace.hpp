// The functions that a process was in, by name.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace sim::crash {

/** Indented lines: the replaced method whose replacement is the innermost of these functions, then they
 * themselves, the innermost first, but for those that nobody knows the names of. Addresses are where they
 * will go on, but for the first when `isExact`. */
std::string described(std::span<void* const> addresses, bool isExact);

}  // namespace sim::crash
