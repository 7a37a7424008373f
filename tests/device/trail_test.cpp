// Which code led to a place, read from stacks that are made up.
#include "device/loader/trail.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace {

using device::loader::Interrupted;
using device::loader::Place;
using device::loader::trailOfCalls;
using device::loader::trailOfFrames;
using Trail = std::vector<uintptr_t>;

uintptr_t wordOf(const uintptr_t* address) { return reinterpret_cast<uintptr_t>(address); }

// Three frames, the innermost at the stack's lowest word.
struct Frames : testing::Test {
  std::array<uintptr_t, 8> stack{};
  Interrupted thread{0x100, 0x201, stack.data(), stack.data(), stack.data() + stack.size()};

  Frames() {
    stack[0] = wordOf(&stack[3]), stack[1] = 0x301;
    stack[3] = wordOf(&stack[6]), stack[4] = 0x401;
    stack[6] = 0, stack[7] = 0x501;
  }
};

TEST_F(Frames, LeadFromWhereItWasToWhereEachReturnsTo) {
  EXPECT_EQ(trailOfFrames(thread), (Trail{0x100, 0x200, 0x300, 0x400, 0x500}));
}

TEST_F(Frames, AreNoneBelowTheStack) {
  ++thread.stack;
  EXPECT_EQ(trailOfFrames(thread), (Trail{0x100, 0x200}));
}

TEST_F(Frames, EndWhereOneIsNotWhollyOnTheStack) {
  --thread.end;
  EXPECT_EQ(trailOfFrames(thread), (Trail{0x100, 0x200, 0x300, 0x400}));
}

TEST_F(Frames, EndWhereOneSaysThatItIsInsideItself) {
  stack[3] = wordOf(&stack[3]);
  EXPECT_EQ(trailOfFrames(thread), (Trail{0x100, 0x200, 0x300, 0x400}));
}

TEST_F(Frames, EndWhereOneSaysThatItIsInsideAnInnerOne) {
  stack[3] = wordOf(&stack[0]);
  EXPECT_EQ(trailOfFrames(thread), (Trail{0x100, 0x200, 0x300, 0x400}));
}

TEST(FramesByTheHundred, AreToldUpTo64Places) {
  std::array<uintptr_t, 200> stack{};
  for (size_t i = 0; i + 2 < stack.size(); i += 2) stack[i] = wordOf(&stack[i + 2]), stack[i + 1] = i + 1;
  const Trail found = trailOfFrames({0, 1, stack.data(), stack.data(), stack.data() + stack.size()});
  ASSERT_EQ(found.size(), 64u);
  EXPECT_EQ(found.back(), 122u);
}

// Code of which the second and the fourth instruction are calls.
struct Calls : testing::Test {
  alignas(4) std::array<uint32_t, 6> code{0xe1a00000, 0xebfffff0, 0xe1a00000,
                                          0xe12fff33, 0xe1a00000, 0xe1a00000};
  std::array<uintptr_t, 3> stack{};
  const uintptr_t base = reinterpret_cast<uintptr_t>(code.data());

  Trail trail() {
    return trailOfCalls({0x100, 0x201, nullptr, stack.data(), stack.data() + stack.size()},
                        {base, sizeof code});
  }
};

TEST_F(Calls, AreWhatComesBeforeAPlaceToReturnTo) {
  stack = {base + 16, 0, base + 8};
  EXPECT_EQ(trail(), (Trail{0x100, 0x200, base + 15, base + 7}));
}

TEST_F(Calls, AreNoOtherInstructions) {
  stack = {base + 4, base + 12, base + 20};
  EXPECT_EQ(trail(), (Trail{0x100, 0x200}));
}

TEST_F(Calls, BeginAtWholeWords) {
  code.fill(0xebebebeb);
  stack = {base + 5, base + 6, base + 8};
  EXPECT_EQ(trail(), (Trail{0x100, 0x200, base + 7}));
}

TEST_F(Calls, AreOfTheImageAlone) {
  code.fill(0xeb000000);
  std::array<uint32_t, 6> other = code;
  stack = {reinterpret_cast<uintptr_t>(&other[2]), base, base + sizeof code};
  EXPECT_EQ(trail(), (Trail{0x100, 0x200, base + sizeof code - 1}));
}

TEST_F(Calls, AreLookedForUpToTheEndOfTheStack) {
  std::array<uintptr_t, 3> words{0, base + 8, base + 8};
  const Trail found = trailOfCalls({0x100, 0x201, nullptr, words.data(), &words[2]}, {base, sizeof code});
  EXPECT_EQ(found, (Trail{0x100, 0x200, base + 7}));
}

TEST_F(Calls, AreToldUpTo64Places) {
  std::array<uintptr_t, 100> words{};
  words.fill(base + 8);
  EXPECT_EQ(
      trailOfCalls({0x100, 0x201, nullptr, words.data(), words.data() + words.size()}, {base, sizeof code})
          .size(),
      64u);
}

TEST(Place, HoldsItsFirstByteAndItsLastAndNoneBesideThem) {
  const Place place{0x1000, 0x100};
  EXPECT_FALSE(place.holds(0xfff));
  EXPECT_TRUE(place.holds(0x1000));
  EXPECT_TRUE(place.holds(0x10ff));
  EXPECT_FALSE(place.holds(0x1100));
}

}  // namespace
