// Decodes the programs of rebases and bindings, and the export trie.
#include "device/tools/loader_tables.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

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

enum RebaseOpcode : uint8_t {
  setRebaseType = 0x10,
  setRebaseSegment = 0x20,
  addRebaseAddress = 0x30,
  addRebaseScaled = 0x40,
  rebaseTimes = 0x50,
  rebaseTimesUleb = 0x60,
  rebaseAddAddress = 0x70,
  rebaseRepeatedly = 0x80,
};

constexpr uint8_t mayBeMissing = 1;  // a bit of setSymbol's immediate
constexpr uint8_t pointerType = 1;

// More pointers than any image has, and longer names, in bytes: what goes beyond is a fault of the tables.
constexpr uint64_t mostPointers = 1 << 20;
constexpr size_t longestName = 1 << 15;

[[noreturn]] void refuse(const char* program, uint8_t byte) {
  throw std::runtime_error(fmt::format("unknown {} opcode {:#x}", program, byte));
}

// How many pointers a program may still name.
class Allowance {
 public:
  void take(uint64_t count) {
    if (count > left) throw std::runtime_error("more pointers than an image can have");
    left -= count;
  }

 private:
  uint64_t left = mostPointers;
};

// Runs a program of bindings: `named` gets the import that a symbol's name begins, `bound` each binding.
void runBindings(std::span<const uint8_t> opcodes, Import::Table table, size_t word, auto named, auto bound) {
  Binding current;
  current.import.table = table;
  Allowance allowance;
  auto bindAndAdd = [&](uint64_t distance, uint64_t count = 1) {
    allowance.take(count);
    for (uint64_t i = 0; i < count; ++i, current.place.offset += word + distance) bound(current);
  };
  ByteReader in(opcodes);
  while (!in.atEnd()) {
    auto byte = in.take<uint8_t>();
    uint8_t immediate = byte & 0x0f;
    switch (byte & 0xf0) {
      case done:  // in the lazy table it ends one symbol, elsewhere the rest is padding
        break;
      case setType:
        if (immediate != pointerType) refuse("bind", byte);
        break;
      case setOrdinal:
        current.import.ordinal = immediate;
        break;
      case setOrdinalUleb:
        current.import.ordinal = static_cast<int64_t>(in.takeUleb());
        break;
      case setOrdinalSpecial:
        current.import.ordinal = immediate ? static_cast<int8_t>(0xf0 | immediate) : 0;
        break;
      case setSymbol:
        current.import.weak = immediate & mayBeMissing;
        current.import.name = in.takeString();
        named(current.import);
        break;
      case setAddend:
        current.addend = in.takeSleb();
        break;
      case setSegment:
        current.place = {immediate, in.takeUleb()};
        break;
      case addAddress:
        current.place.offset += in.takeUleb();
        break;
      case bind:
        bindAndAdd(0);
        break;
      case bindAddScaled:
        bindAndAdd(immediate * word);
        break;
      case bindAddAddress:
        bindAndAdd(in.takeUleb());
        break;
      case bindRepeatedly: {
        uint64_t count = in.takeUleb(), distance = in.takeUleb();
        bindAndAdd(distance, count);
        break;
      }
      default:
        refuse("bind", byte);
    }
  }
}

}  // namespace

std::vector<Place> readRebases(std::span<const uint8_t> opcodes, size_t word) {
  std::vector<Place> places;
  Place current;
  Allowance allowance;
  auto rebase = [&](uint64_t count, uint64_t distance) {
    allowance.take(count);
    for (uint64_t i = 0; i < count; ++i, current.offset += word + distance) places.push_back(current);
  };
  ByteReader in(opcodes);
  while (!in.atEnd()) {
    auto byte = in.take<uint8_t>();
    uint8_t immediate = byte & 0x0f;
    switch (byte & 0xf0) {
      case done:  // the rest is padding
        if (immediate ||
            std::ranges::any_of(opcodes.subspan(in.position()), [](uint8_t rest) { return rest; }))
          throw std::runtime_error("the program of rebases goes on behind its end");
        return places;
      case setRebaseType:
        if (immediate != pointerType) refuse("rebase", byte);
        break;
      case setRebaseSegment:
        current = {immediate, in.takeUleb()};
        break;
      case addRebaseAddress:
        current.offset += in.takeUleb();
        break;
      case addRebaseScaled:
        current.offset += immediate * word;
        break;
      case rebaseTimes:
        rebase(immediate, 0);
        break;
      case rebaseTimesUleb:
        rebase(in.takeUleb(), 0);
        break;
      case rebaseAddAddress:
        rebase(1, in.takeUleb());
        break;
      case rebaseRepeatedly: {
        uint64_t count = in.takeUleb();
        rebase(count, in.takeUleb());
        break;
      }
      default:
        refuse("rebase", byte);
    }
  }
  return places;
}

std::vector<Binding> readBindings(std::span<const uint8_t> opcodes, Import::Table table, size_t word) {
  std::vector<Binding> bindings;
  runBindings(
      opcodes, table, word, [](const Import&) {},
      [&](const Binding& binding) { bindings.push_back(binding); });
  return bindings;
}

std::vector<Import> readImports(std::span<const uint8_t> opcodes, Import::Table table) {
  std::vector<Import> imports;
  std::set<std::tuple<std::string, int64_t, bool>> known;
  auto addOnce = [&](const Import& import) {
    if (known.emplace(import.name, import.ordinal, import.weak).second) imports.push_back(import);
  };
  runBindings(
      opcodes, table, 0,
      [&](const Import& import) {
        // A strong definition in the weak table binds nothing, but it is there all the same.
        if (table == Import::Table::weakBind) addOnce(import);
      },
      [&](const Binding& binding) { addOnce(binding.import); });
  return imports;
}

std::vector<Export> readExports(std::span<const uint8_t> trie) {
  struct Node {
    uint64_t offset;
    std::string prefix;
  };
  std::vector<Export> found;
  std::vector<Node> ahead;  // the next one last
  std::set<uint64_t> seen;
  if (!trie.empty()) ahead.push_back({0, ""});
  while (!ahead.empty()) {
    const Node node = std::move(ahead.back());
    ahead.pop_back();
    if (!seen.insert(node.offset).second) throw std::runtime_error("export trie leads to one place twice");
    ByteReader in(trie, node.offset);
    const uint64_t payload = in.takeUleb();
    const uint64_t children = in.position() + payload;
    if (payload) {
      in.takeUleb();  // flags
      found.push_back({node.prefix, in.takeUleb()});
    }
    in = ByteReader(trie, children);
    const auto count = in.take<uint8_t>();
    for (int i = 0; i < count; ++i) {
      std::string name = node.prefix + in.takeString();
      if (name.size() > longestName) throw std::runtime_error("a name longer than any in the export trie");
      ahead.push_back({in.takeUleb(), std::move(name)});
    }
    std::reverse(ahead.end() - count, ahead.end());
  }
  return found;
}

}  // namespace device
