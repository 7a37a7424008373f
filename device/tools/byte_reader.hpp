// Bounds-checked reading of a run of bytes.
#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace device {

// Every read outside the bytes throws std::runtime_error. Numbers are little-endian, as on the machine that
// runs this.
class ByteReader {
 public:
  explicit ByteReader(std::span<const uint8_t> bytes, size_t position = 0) : bytes(bytes), at(position) {}

  template <class T>
  T take() {
    need(sizeof(T));
    T value;
    std::memcpy(&value, bytes.data() + at, sizeof(T));
    at += sizeof(T);
    return value;
  }

  // A word of the image: 8 bytes in a 64-bit slice, else 4.
  uint64_t takeWord(bool is64) { return is64 ? take<uint64_t>() : take<uint32_t>(); }

  uint64_t takeUleb() {
    uint64_t value = 0;
    for (unsigned shift = 0;; shift += 7) {
      auto byte = take<uint8_t>();
      if (shift > 63) throw std::runtime_error("number too long");
      value |= static_cast<uint64_t>(byte & 0x7f) << shift;
      if (!(byte & 0x80)) return value;
    }
  }

  int64_t takeSleb() {
    uint64_t value = 0;
    for (unsigned shift = 0;;) {
      auto byte = take<uint8_t>();
      if (shift > 63) throw std::runtime_error("number too long");
      value |= static_cast<uint64_t>(byte & 0x7f) << shift;
      shift += 7;
      if (byte & 0x80) continue;
      if (shift < 64 && (byte & 0x40)) value |= ~uint64_t{0} << shift;
      return static_cast<int64_t>(value);
    }
  }

  // Up to the terminating zero, which is consumed.
  std::string takeString() {
    std::string text;
    while (char c = take<char>()) text += c;
    return text;
  }

  // A field of `width` bytes, filled up with zeros.
  std::string takeName(size_t width) {
    need(width);
    std::string_view field(reinterpret_cast<const char*>(bytes.data() + at), width);
    at += width;
    return std::string(field.substr(0, field.find('\0')));
  }

  void skip(size_t count) {
    need(count);
    at += count;
  }

  bool atEnd() const { return at >= bytes.size(); }
  size_t position() const { return at; }

 private:
  void need(size_t count) const {
    if (at > bytes.size() || count > bytes.size() - at) throw std::runtime_error("file is cut short");
  }

  std::span<const uint8_t> bytes;
  size_t at;
};

// `count` bytes from `offset`; throws std::runtime_error if they do not all lie within.
inline std::span<const uint8_t> part(std::span<const uint8_t> bytes, uint64_t offset, uint64_t count) {
  if (offset > bytes.size() || count > bytes.size() - offset) throw std::runtime_error("file is cut short");
  return bytes.subspan(offset, count);
}

}  // namespace device
