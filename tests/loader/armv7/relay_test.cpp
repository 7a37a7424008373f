// Functions that stand for others, called as the slice calls: on a stack that is aligned to a word only, and
// with no register 9 of its own.
#include "device/loader/armv7/relay.hpp"

#include <gtest/gtest.h>

#include "tests/loader/armv7/caller.hpp"

extern "C" uint64_t spoilsRegister9();

__asm__(R"(
  .text
  .arm
  .balign 4
  .global spoilsRegister9
  .type spoilsRegister9, %function
spoilsRegister9:
  mov r9, #0
  mov r0, #21
  mov r1, #22
  bx lr
  .size spoilsRegister9, . - spoilsRegister9
)");

namespace {

using device::loader::plainWords;
using device::loader::relayed;
using device::loader::relayTarget;
using device::loader::WordMap;
using test::Words;

template <class Function>
void* address(Function* function) {
  return reinterpret_cast<void*>(function);
}

constexpr Words twelve{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};

test::Answer call(void* function) { return test::callAsTheSlice(function, twelve); }

Words got;
void take(uint32_t a, uint32_t b, uint32_t c, uint32_t d, uint32_t e, uint32_t f, uint32_t g, uint32_t h,
          uint32_t i, uint32_t j, uint32_t k, uint32_t l) {
  got = {a, b, c, d, e, f, g, h, i, j, k, l};
}

TEST(Relay, HandsEveryWordOn) {
  call(relayed(address(take), plainWords(12)));
  EXPECT_EQ(got, twelve);
}

TEST(Relay, LaysTheWordsOutAnew) {
  call(relayed(address(take), WordMap{11, 0, 2, 0, 3, 4, 10, 9, 8, 7, 6, 5}));
  EXPECT_EQ(got, (Words{12, 1, 3, 1, 4, 5, 11, 10, 9, 8, 7, 6}));
}

void takeTwo(uint32_t first, uint32_t second) { got = {first, second}; }

TEST(Relay, HandsFewerOnThanRegistersHold) {
  call(relayed(address(takeTwo), WordMap{1, 0}));
  EXPECT_EQ(got, (Words{2, 1}));
}

TEST(Relay, AlignsTheStackForWhatItCalls) {
  for (uint32_t count : {0, 3, 4, 5, 6, 7, 8})
    EXPECT_EQ(call(relayed(address(misalignmentOfTheStack), plainWords(count))).result & 0xffffffff, 0u)
        << count;
}

TEST(Relay, HandsAResultOf64BitsBack) {
  EXPECT_EQ(call(relayed(address(spoilsRegister9), plainWords(5))).result, 22ull << 32 | 21);
}

TEST(Relay, KeepsTheCallersRegisters) {
  EXPECT_EQ(call(relayed(address(spoilsRegister9), plainWords(5))).kept,
            (std::array<uint32_t, 4>{104, 105, 109, 111}));
}

TEST(Relay, IsTheSameForTheSame) {
  EXPECT_EQ(relayed(address(take), plainWords(3)), relayed(address(take), plainWords(3)));
  EXPECT_NE(relayed(address(take), plainWords(3)), relayed(address(take), plainWords(4)));
  EXPECT_NE(relayed(address(take), plainWords(3)), relayed(address(takeTwo), plainWords(3)));
}

TEST(Relay, IsKnownByWhatItLeadsTo) {
  EXPECT_EQ(relayTarget(relayed(address(take), plainWords(2))), address(take));
  EXPECT_EQ(relayTarget(address(take)), address(take));
}

// More than go on a page.
TEST(Relay, IsThereForEachOfThousands) {
  std::vector<void*> relays;
  for (uint32_t i = 0; i < 9000; ++i) relays.push_back(relayed(address(takeTwo), WordMap{0, i % 12, i}));
  for (uint32_t i = 0; i < 9000; ++i) {
    reinterpret_cast<void (*)(uint32_t, uint32_t)>(relays[i])(7, 8);
    if (i % 12 == 0) ASSERT_EQ(got, (Words{7, 7})) << i;
    if (i % 12 == 1) ASSERT_EQ(got, (Words{7, 8})) << i;
  }
}

}  // namespace
