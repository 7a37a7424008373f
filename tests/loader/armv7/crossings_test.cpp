// What crosses between the slice and the process on armv7: words in one row, which the functions here have as
// arguments of 32 bits.
#include "device/loader/crossings.hpp"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <csignal>
#include <cstring>

#include "bridge/runtime.hpp"
#include "device/loader/armv7/relay.hpp"
#include "simulator/runtime/console.hpp"
#include "tests/loader/armv7/caller.hpp"
#include "tests/loader/imported.hpp"

namespace {

using namespace device::loader;
using test::imported;
using testing::KilledBySignal;

uint32_t low(double value) { return static_cast<uint32_t>(std::bit_cast<uint64_t>(value)); }
uint32_t high(double value) { return static_cast<uint32_t>(std::bit_cast<uint64_t>(value) >> 32); }
uint32_t word(const char* text) { return reinterpret_cast<uint32_t>(text); }

using Row = std::array<uint32_t, 70>;

// What the slice has written by that format, with these words behind it.
std::string formatted(const char* format, const Row& row) {
  static char text[400];
  auto write = imported<int(char*, size_t, const char*, Row)>("_snprintf");
  const int length = write(text, sizeof text, format, row);
  EXPECT_EQ(static_cast<size_t>(length), std::strlen(text));
  return text;
}

TEST(ArgumentsWithoutNames, AreWordsInARow) {
  EXPECT_EQ(formatted("%d %s %x", {42, word("word"), 255}), "42 word ff");
}

TEST(ArgumentsWithoutNames, HaveRealsAtAnyPlace) {
  EXPECT_EQ(formatted("%.1f %d %.1f %d", {low(1.5), high(1.5), 7, low(2.5), high(2.5), 8}), "1.5 7 2.5 8");
  EXPECT_EQ(formatted("%d %.1f %d", {7, low(1.5), high(1.5), 8}), "7 1.5 8");
  EXPECT_EQ(formatted("%d %d %.1f %d", {6, 7, low(1.5), high(1.5), 8}), "6 7 1.5 8");
}

TEST(ArgumentsWithoutNames, HaveRealsInEveryForm) {
  for (const char* form :
       {"%d %a %d", "%d %A %d", "%d %f %d", "%d %F %d", "%d %g %d", "%d %G %d", "%d %e %d", "%d %E %d"}) {
    char expected[100];
    std::snprintf(expected, sizeof expected, form, 1, 1.5, 2);
    EXPECT_EQ(formatted(form, {1, low(1.5), high(1.5), 2}), expected);
  }
}

TEST(ArgumentsWithoutNames, HaveWholeNumbersOf64BitsAtAnyPlace) {
  EXPECT_EQ(formatted("%d %lld %d", {1, 2, 1, 3}), "1 4294967298 3");
  EXPECT_EQ(formatted("%d %qd %d", {1, 2, 1, 3}), "1 4294967298 3");
  EXPECT_EQ(formatted("%d %jd %d", {1, 2, 1, 3}), "1 4294967298 3");
  EXPECT_EQ(formatted("%d %ld %d", {1, 2, 3}), "1 2 3");
}

TEST(ArgumentsWithoutNames, AreNoneOfAPercentSign) { EXPECT_EQ(formatted("%d%% %d%%", {1, 2}), "1% 2%"); }

std::string wholeNumbers(size_t count) {
  std::string format;
  for (size_t i = 0; i < count; ++i) format += "%d";
  return format;
}

TEST(ArgumentsWithoutNames, AreUpTo62Words) {
  Row row{};
  row[61] = 5;
  EXPECT_EQ(formatted(wholeNumbers(62).c_str(), row), std::string(61, '0') + '5');
}

TEST(ArgumentsWithoutNames, EndTheProcessWhereTheyAreMore) {
  EXPECT_EXIT(formatted(wholeNumbers(63).c_str(), {}), KilledBySignal(SIGABRT), "%d' cannot cross");
}

TEST(ArgumentsWithoutNames, EndTheProcessWhereTheirWidthIsOne) {
  EXPECT_EXIT(formatted("%*d", {1, 2}), KilledBySignal(SIGABRT), "the arguments of '%\\*d' cannot cross");
}

TEST(ArgumentsWithoutNames, EndTheProcessWhereTheFormatHasNoEnd) {
  EXPECT_EXIT(formatted("%d %l", {1, 2}), KilledBySignal(SIGABRT), "the arguments of '%d %l' cannot cross");
}

TEST(ArgumentsWithoutNames, AreReadOnAStackOfWords) {
  char text[20];
  const auto address = reinterpret_cast<uint32_t>(text);
  test::callAsTheSlice(importNamed("_snprintf"),
                       {address, sizeof text, word("%d %.1f"), 7, low(1.5), high(1.5)});
  EXPECT_STREQ(text, "7 1.5");
}

TEST(ArgumentsWithoutNames, ReachTheLogFromAStackOfWords) {
  const auto format = reinterpret_cast<uint32_t>(bridge::immortalString("%d %.1f"));
  test::callAsTheSlice(importNamed("_CFLog"), {4, format, 7, low(1.5), high(1.5)});
  EXPECT_EQ(sim::console(), (std::vector<std::string>{"7 1.5"}));
}

TEST(ArgumentsWithoutNames, ReachTheLog) {
  auto log = imported<void(int, id, Row)>("_CFLog");
  log(4, bridge::immortalString("%d %.1f %d"), {7, low(1.5), high(1.5), 8});
  EXPECT_EQ(sim::console(), (std::vector<std::string>{"7 1.5 8"}));
}

// Apple's callees widen it, and the slice reads all of the register.
TEST(SmallResults, AreAWholeWord) {
  auto equal = imported<uint32_t(SEL, SEL)>("_sel_isEqual");
  EXPECT_EQ(equal(sel_registerName("one"), sel_registerName("one")), 1u);
  EXPECT_EQ(equal(sel_registerName("one"), sel_registerName("other")), 0u);
}

TEST(Functions, OfTheProcessAreCalledByARelay) {
  void* found = asImport(reinterpret_cast<void*>(&std::strlen));
  EXPECT_NE(found, reinterpret_cast<void*>(&std::strlen));
  EXPECT_EQ(relayTarget(found), reinterpret_cast<void*>(&std::strlen));
  EXPECT_EQ(reinterpret_cast<uint32_t (*)(const char*)>(found)("word"), 4u);
}

int function() { return 5; }

TEST(Functions, WithoutASymbolAreCalledByARelayToo) {
  EXPECT_NE(asImport(reinterpret_cast<void*>(function)), reinterpret_cast<void*>(function));
}

TEST(Functions, HaveUpToTwelveWords) {
  using Twelve = std::array<uint32_t, 12>;
  uint32_t (*last)(Twelve) = [](Twelve words) { return words.back(); };
  auto relay = reinterpret_cast<uint32_t (*)(Twelve)>(asFunction(reinterpret_cast<void*>(last)));
  EXPECT_EQ(relay({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}), 12u);
}

TEST(Functions, OfTheSliceAreFoundBehindWhatTheProcessCalls) {
  EXPECT_EQ(ofSlice(asFunction(reinterpret_cast<void*>(function))), reinterpret_cast<void*>(function));
  EXPECT_EQ(ofSlice(reinterpret_cast<void*>(function)), reinterpret_cast<void*>(function));
}

TEST(Data, IsTheVeryData) {
  EXPECT_EQ(asImport(&stderr), static_cast<void*>(&stderr));
  EXPECT_EQ(asImport(nullptr), nullptr);
}

TEST(Data, OfNoImageIsTheVeryData) {
  const auto memory = std::make_unique<int>();
  EXPECT_EQ(asImport(memory.get()), memory.get());
}

}  // namespace
