// Signs a slice as nobody in particular, which is what jailbroken systems ask for.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace device::signature {

// The slice with its signature behind it. Throws std::runtime_error, saying what is wrong, for a universal
// file, for a slice that is signed, for one whose load commands leave no room for another, and for one that
// does not end with its segment __LINKEDIT.
std::vector<uint8_t> withSignature(std::vector<uint8_t> slice, const std::string& identifier);

}  // namespace device::signature
