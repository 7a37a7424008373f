// Decodes bind opcodes and the export trie.
#include "device/tools/loader_tables.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "device/tools/byte_reader.hpp"

namespace device {
namespace {

// The high half of an opcode's byte; the low half is an immediate operand.
enum Opcode : uint8_t {
  done = 0x00,
  setOrdinal = 0x10,
  setOrdinalUleb = 0x20,
  setOrdinalSpecial = 0x30,
  setSymbol = 0x40,
  setType = 0x50,
  setAddend = 0x60,
  setSegment = 0x70,
  addAddress = 0x80,
  bind = 0x90,
  bindAddAddress = 0xa0,
  bindAddScaled = 0xb0,
  bindRepeatedly = 0xc0,
};

constexpr uint8_t mayBeMissing = 1;  // a bit of setSymbol's immediate

void addOnce(std::vector<Import>& imports, const Import& import) {
  bool known = std::ranges::any_of(imports, [&](const Import& other) {
    return other.name == import.name && other.ordinal == import.ordinal && other.weak == import.weak;
  });
  if (!known) imports.push_back(import);
}

void readNode(std::span<const uint8_t> trie, size_t offset, const std::string& prefix, size_t depth,
              std::vector<std::string>& names) {
  if (depth > trie.size()) throw std::runtime_error("export trie runs in a circle");
  ByteReader node(trie, offset);
  uint64_t payload = node.takeUleb();
  if (payload) names.push_back(prefix);
  node.skip(payload);
  auto children = node.take<uint8_t>();
  for (int i = 0; i < children; ++i) {
    std::string edge = node.takeString();
    uint64_t child = node.takeUleb();
    readNode(trie, child, prefix + edge, depth + 1, names);
  }
}

}  // namespace

std::vector<Import> readBindings(std::span<const uint8_t> opcodes, Import::Table table) {
  std::vector<Import> imports;
  Import current{.table = table, .name = {}};
  ByteReader in(opcodes);
  while (!in.atEnd()) {
    auto byte = in.take<uint8_t>();
    uint8_t immediate = byte & 0x0f;
    switch (byte & 0xf0) {
      case done:  // in the lazy table it ends one symbol, elsewhere the rest is padding
      case setType:
        break;
      case setOrdinal:
        current.ordinal = immediate;
        break;
      case setOrdinalUleb:
        current.ordinal = static_cast<int64_t>(in.takeUleb());
        break;
      case setOrdinalSpecial:
        current.ordinal = immediate ? static_cast<int8_t>(0xf0 | immediate) : 0;
        break;
      case setSymbol:
        current.weak = immediate & mayBeMissing;
        current.name = in.takeString();
        // A strong definition in the weak table binds nothing, but it is there all the same.
        if (table == Import::Table::weakBind) addOnce(imports, current);
        break;
      case setAddend:
        in.skipSleb();
        break;
      case setSegment:
      case addAddress:
        in.takeUleb();
        break;
      case bind:
      case bindAddScaled:
        addOnce(imports, current);
        break;
      case bindAddAddress:
        addOnce(imports, current);
        in.takeUleb();
        break;
      case bindRepeatedly:
        addOnce(imports, current);
        in.takeUleb();
        in.takeUleb();
        break;
      default:
        throw std::runtime_error(fmt::format("unknown bind opcode {:#x}", byte));
    }
  }
  return imports;
}

std::vector<std::string> readExports(std::span<const uint8_t> trie) {
  std::vector<std::string> names;
  if (!trie.empty()) readNode(trie, 0, "", 0, names);
  return names;
}

}  // namespace device
