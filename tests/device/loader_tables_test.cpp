// The tables that tell the loader what to fill in and what an image offers: how much of them is believed.
#include "device/tools/loader_tables.hpp"

#include <gtest/gtest.h>

namespace {

using namespace device;
using Bytes = std::vector<uint8_t>;
using Table = Import::Table;

constexpr size_t most = 1 << 20;

// Seven bits a byte, the lowest first.
Bytes uleb(uint64_t value) {
  Bytes bytes;
  for (; value >= 0x80; value >>= 7) bytes.push_back(static_cast<uint8_t>(value | 0x80));
  bytes.push_back(static_cast<uint8_t>(value));
  return bytes;
}

Bytes operator+(Bytes one, const Bytes& other) {
  one.insert(one.end(), other.begin(), other.end());
  return one;
}

std::string refusal(auto&& reading) {
  try {
    reading();
    return "";
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

std::string refusalOfRebases(const Bytes& program) {
  return refusal([&] { readRebases(program, 8); });
}

std::string refusalOfBindings(const Bytes& program) {
  return refusal([&] { readBindings(program, Table::bind, 8); });
}

std::string refusalOfExports(const Bytes& trie) {
  return refusal([&] { readExports(trie); });
}

const std::string tooMany = "more pointers than an image can have";
const Bytes times{0x60}, once{0x51}, spaced{0x80}, onceSpaced{0x70, 0};
const Bytes symbol{0x40, 'a', 0}, bindOnce{0x90}, bindTimes{0xc0}, bindScaled{0xb1}, bindSpaced{0xa0, 0};

TEST(RebasesOfAnImage, AreNoMoreThanItCanHave) {
  EXPECT_EQ(readRebases(times + uleb(most), 8).size(), most);
  EXPECT_EQ(refusalOfRebases(times + uleb(most + 1)), tooMany);
  EXPECT_EQ(refusalOfRebases(spaced + uleb(most + 1) + uleb(0)), tooMany);
}

TEST(RebasesOfAnImage, AreCountedOverAllOfTheProgram) {
  for (const Bytes& more : {once, onceSpaced, times + uleb(1), spaced + uleb(1) + uleb(0)})
    EXPECT_EQ(refusalOfRebases(times + uleb(most) + more), tooMany);
}

TEST(BindingsOfAnImage, AreNoMoreThanItCanHave) {
  EXPECT_EQ(readBindings(symbol + bindTimes + uleb(most) + uleb(0), Table::bind, 8).size(), most);
  EXPECT_EQ(refusalOfBindings(symbol + bindTimes + uleb(most + 1) + uleb(0)), tooMany);
}

TEST(BindingsOfAnImage, AreCountedOverAllOfTheProgram) {
  for (const Bytes& more : {bindOnce, bindScaled, bindSpaced, bindTimes + uleb(1) + uleb(0)})
    EXPECT_EQ(refusalOfBindings(symbol + bindTimes + uleb(most) + uleb(0) + more), tooMany);
}

TEST(BindingsOfAnImage, AreSpacedAsTheProgramSays) {
  std::vector<uint64_t> offsets;
  const Bytes program = symbol + bindTimes + uleb(2) + uleb(16) + bindScaled + bindSpaced + bindOnce;
  for (const Binding& binding : readBindings(program, Table::bind, 8))
    offsets.push_back(binding.place.offset);
  EXPECT_EQ(offsets, (std::vector<uint64_t>{0, 24, 48, 64, 72}));
}

TEST(ImportsOfAnImage, AreNamedOnceInTheOrderOfTheirFirstUse) {
  const Bytes b{0x40, 'b', 0}, weakB{0x41, 'b', 0}, fromThird{0x13};
  std::vector<std::string> names;
  for (const Import& import :
       readImports(b + bindOnce + symbol + bindOnce + b + bindOnce + weakB + bindOnce + fromThird + bindOnce,
                   Table::bind))
    names.push_back(import.name);
  EXPECT_EQ(names, (std::vector<std::string>{"b", "a", "b", "b"}));
}

// A node: its payload's size and payload, how many children, and each one's letters and place.
TEST(ExportsOfAnImage, ComeInTheOrderOfTheTrie) {
  const Bytes trie{0, 2, 'a', 0, 8, 'b', 0, 16, 2, 0, 5, 1, 'c', 0, 20, 0, 2, 0, 6, 0, 2, 0, 7, 0};
  std::vector<std::string> names;
  for (const Export& found : readExports(trie)) names.push_back(found.name);
  EXPECT_EQ(names, (std::vector<std::string>{"a", "ac", "b"}));
  EXPECT_EQ(readExports(trie)[1].address, 7u);
}

// Or else thirty nodes of which each leads to the next twice would take a thousand million steps.
TEST(ExportsOfAnImage, LeadToEachPlaceOnce) {
  const std::string twice = "export trie leads to one place twice";
  EXPECT_EQ(refusalOfExports({0, 1, 'a', 0, 0}), twice);
  EXPECT_EQ(refusalOfExports({0, 2, 'a', 0, 8, 'b', 0, 8, 2, 0, 5, 0}), twice);
}

TEST(ExportsOfAnImage, HaveNamesOfThirtyTwoThousandBytesAtMost) {
  const auto trie = [](size_t letters) {
    const Bytes name(letters, 'a');
    const size_t child = 2 + letters + 1 + 3;
    Bytes place = uleb(child);
    return Bytes{0, 1} + name + Bytes{0} + place + Bytes{2, 0, 5, 0};
  };
  EXPECT_EQ(readExports(trie(32'768)).front().name.size(), 32'768u);
  EXPECT_EQ(refusalOfExports(trie(32'769)), "a name longer than any in the export trie");
}

TEST(ExportsOfAnImage, MayBeNestedAsDeepAsTheirTableIsLong) {
  Bytes trie;
  for (size_t i = 1; i <= 200'000; ++i) {
    Bytes place = uleb(i * 6);
    place.resize(3, 0);
    for (size_t byte = 0; byte + 1 < 3; ++byte) place[byte] |= 0x80;
    trie = std::move(trie) + Bytes{0, 1, 0} + place;
  }
  EXPECT_EQ(readExports(trie + Bytes{2, 0, 5, 0}).size(), 1u);
}

}  // namespace
