// The two kinds of hash that code signatures of iOS 9 to 12 are made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace device::signature {

// By the numbers of the file format.
enum class HashKind : uint8_t { sha1 = 1, sha256 = 2 };

std::string hashName(HashKind kind);
size_t hashSize(HashKind kind);
std::vector<uint8_t> hash(HashKind kind, std::span<const uint8_t> bytes);

}  // namespace device::signature
