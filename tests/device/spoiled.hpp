// What somebody may have done to a signed file.
#pragma once

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "device/tools/byte_reader.hpp"
#include "device/tools/macho_image.hpp"

namespace device::test {

using Bytes = std::vector<uint8_t>;

inline Bytes contentsOf(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline void writeContents(const std::string& file, const Bytes& bytes) {
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<long>(bytes.size()));
}

inline uint32_t get32(const Bytes& file, size_t at, bool bigEndian = false) {
  const auto value = ByteReader(file, at).take<uint32_t>();
  return bigEndian ? __builtin_bswap32(value) : value;
}

inline void put32(Bytes& file, size_t at, uint32_t value, bool bigEndian = false) {
  if (bigEndian) value = __builtin_bswap32(value);
  std::memcpy(file.data() + at, &value, sizeof value);
}

// Where the first section's offset into the file is written.
inline size_t firstSectionOffset(const Slice& slice) {
  return slice.start + (slice.is64 ? 32 + 72 + 48 : 28 + 56 + 40);
}

// Takes the entitlements out of the slice's signature whole, so that all that is left is in order; zeros fill
// it up.
inline void takeOutEntitlements(Bytes& file, const Slice& slice) {
  const size_t start = slice.start + slice.signatures.front().offset;
  const size_t end = start + slice.signatures.front().size;
  const auto offset = [&](size_t number) { return get32(file, start + 16 + 8 * number, true); };
  const uint32_t begin = offset(2), last = offset(3), size = last - begin;
  const uint32_t length = get32(file, start + 4, true);
  put32(file, start + 4, length - size - 8, true);
  put32(file, start + 8, 3, true);
  for (size_t entry : {0, 1}) put32(file, start + 16 + 8 * entry, offset(entry) - 8, true);
  put32(file, start + 12 + 16, 0x1000, true);
  put32(file, start + 16 + 16, last - size - 8, true);
  Bytes left(file.begin() + static_cast<long>(start), file.begin() + static_cast<long>(start + length));
  left.erase(left.begin() + begin, left.begin() + last);
  left.erase(left.begin() + 36, left.begin() + 44);
  left.resize(end - start);
  std::copy(left.begin(), left.end(), file.begin() + static_cast<long>(start));
}

}  // namespace device::test
