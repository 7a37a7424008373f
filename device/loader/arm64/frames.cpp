// Writes call frame information as DWARF has it: what all frames share once, then one entry for each run of
// code.
#include "device/loader/arm64/frames.hpp"

#include <fmt/format.h>

#include <cstring>
#include <stdexcept>

namespace device::loader {
namespace {

// How code keeps its frame, and which pairs of registers it has put there, the lowest bit next to the frame's
// start (mach-o/compact_unwind_encoding.h).
constexpr uint32_t way = 0x0f000000, withoutFrame = 0x02000000, withFrame = 0x04000000;
constexpr uint32_t generalPairs = 5, firstRealPair = 8, realPairs = 4;

// DWARF's instructions, and its numbers of registers.
enum : uint8_t { pad = 0x00, farOffset = 0x05, defineFrame = 0x0c, offset = 0x80 };
constexpr uint8_t general = 0, real = 64, framePointer = 29, link = 30;

class Writer {
 public:
  template <class T>
  void add(T value) {
    const size_t at = bytes.size();
    bytes.resize(at + sizeof value);
    std::memcpy(bytes.data() + at, &value, sizeof value);
  }

  // An entry, from its length to a whole number of words.
  void entry(auto contents) {
    const size_t at = bytes.size();
    add(uint32_t{0});
    contents();
    while (bytes.size() % 8) add(pad);
    const auto length = static_cast<uint32_t>(bytes.size() - at - 4);
    std::memcpy(bytes.data() + at, &length, sizeof length);
  }

  // `words` of 8 bytes below where the frame of the caller begins.
  void kept(uint8_t number, uint8_t words) {
    if (number < real)
      add<uint8_t>(offset | number);
    else
      add<uint8_t>(farOffset), add(number);
    add(words);
  }

  std::vector<uint8_t> bytes;
};

// Where it returns to and the caller's frame are at the frame pointer, above what else is kept.
void addShared(Writer& out) {
  out.entry([&] {
    out.add(uint32_t{0});    // no entry's, but what entries refer to
    out.add(uint8_t{1});     // version
    out.add('\0');           // addresses are words as they stand
    out.add(uint8_t{4});     // bytes of an instruction
    out.add(uint8_t{0x78});  // places are counted in -8 bytes
    out.add(link);
    out.add(defineFrame), out.add(framePointer), out.add(uint8_t{16});
    out.kept(framePointer, 2);
    out.kept(link, 1);
  });
}

void addCode(Writer& out, uintptr_t start, uint64_t size, uint32_t encoding) {
  out.entry([&] {
    out.add(static_cast<uint32_t>(out.bytes.size()));  // back to what is shared, which is at the start
    out.add(start);
    out.add(size);
    uint8_t place = 2;
    const auto addPairs = [&](uint32_t bit, uint32_t count, uint8_t first) {
      for (uint8_t pair = 0; pair < count; ++pair) {
        if (!(encoding >> (bit + pair) & 1)) continue;
        const auto number = static_cast<uint8_t>(first + 2 * pair);
        out.kept(number, ++place);
        out.kept(static_cast<uint8_t>(number + 1), ++place);
      }
    };
    addPairs(0, generalPairs, general + 19);
    addPairs(firstRealPair, realPairs, real + 8);
  });
}

}  // namespace

std::vector<uint8_t> frameDescriptions(std::span<const Unwinding> table, uintptr_t base) {
  Writer out;
  addShared(out);
  for (size_t i = 0; i + 1 < table.size(); ++i) {
    const auto& [address, encoding] = table[i];
    switch (encoding & way) {
      case withoutFrame:
        break;
      case withFrame:
        addCode(out, base + address, table[i + 1].address - address, encoding);
        break;
      default:
        throw std::runtime_error(
            fmt::format("code at {:#x} has the unwind encoding {:#x}", address, encoding));
    }
  }
  out.add(uint32_t{0});
  return out.bytes;
}

}  // namespace device::loader
