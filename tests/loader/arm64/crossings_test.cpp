// What crosses between the slice and the process on arm64.
#include <gtest/gtest.h>

#include <array>
#include <bit>

#include "bridge/runtime.hpp"
#include "simulator/runtime/console.hpp"
#include "tests/loader/imported.hpp"

namespace {

using test::imported;

// An object of a class of its own, which answers one message.
template <class R, class... A>
id answering(const char* selector, R (*function)(id, SEL, A...)) {
  static Class made;
  made = objc_allocateClassPair(objc_getClass("NSObject"), "Answering", 0);
  class_addMethod(made, sel_registerName(selector), reinterpret_cast<IMP>(function), "v@:");
  objc_registerClassPair(made);
  return reinterpret_cast<id>(&made);
}

std::array<long, 6> wholes;
std::array<long double, 8> reals;

void take(id, SEL, long a, long b, long c, long d, long e, long f, long double s, long double t,
          long double u, long double v, long double w, long double x, long double y, long double z) {
  wholes = {a, b, c, d, e, f};
  reals = {s, t, u, v, w, x, y, z};
}

TEST(SentMessages, BringAllThatRegistersHold) {
  const id object = answering("take", take);
  imported<decltype(take)>("_objc_msgSend")(object, sel_registerName("take"), 1, 2, 3, 4, 5, 6, 1.5L, 2.5L,
                                            3.5L, 4.5L, 5.5L, 6.5L, 7.5L, 8.5L);
  EXPECT_EQ(wholes, (std::array<long, 6>{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(reals, (std::array<long double, 8>{1.5L, 2.5L, 3.5L, 4.5L, 5.5L, 6.5L, 7.5L, 8.5L}));
}

struct Large {
  std::array<long, 5> words;
};
Large large(id, SEL, long first) { return {{first, 2, 3, 4, 5}}; }

TEST(SentMessages, BringThePlaceOfALargeResult) {
  const id object = answering("large", large);
  const Large found = imported<decltype(large)>("_objc_msgSend")(object, sel_registerName("large"), 1);
  EXPECT_EQ(found.words, (std::array<long, 5>{1, 2, 3, 4, 5}));
}

struct Pair {
  long first, second;
};
struct Rect {
  double x, y, width, height;
};

TEST(SentMessages, AnswerZerosForNil) {
  const Pair pair = imported<Pair(id, SEL, long)>("_objc_msgSend")(nullptr, sel_registerName("pair"), 7);
  EXPECT_EQ(pair.first, 0);
  EXPECT_EQ(pair.second, 0);
  const Rect rect = imported<Rect(id, SEL, double, double, double, double)>("_objc_msgSend")(
      nullptr, sel_registerName("rect"), 1, 2, 3, 4);
  EXPECT_EQ(rect.x, 0);
  EXPECT_EQ(rect.y, 0);
  EXPECT_EQ(rect.width, 0);
  EXPECT_EQ(rect.height, 0);
}

// Behind eight whole numbers all others are on the stack, where Apple's callers put what has no name at once.
constexpr long unused = 0;

TEST(ArgumentsWithoutNames, AreWrittenIntoAText) {
  auto format =
      imported<int(char*, size_t, const char*, long, long, long, long, long, long, long, long)>("_snprintf");
  char text[40] = {};
  const int length = format(text, sizeof text, "%d %.1f %s", unused, unused, unused, unused, unused, 42,
                            std::bit_cast<long>(1.5), reinterpret_cast<long>("word"));
  EXPECT_STREQ(text, "42 1.5 word");
  EXPECT_EQ(length, 11);
}

TEST(ArgumentsWithoutNames, ReachTheLog) {
  auto log = imported<void(int, id, long, long, long, long, long, long, long, long)>("_CFLog");
  log(4, bridge::immortalString("%d %.1f"), unused, unused, unused, unused, unused, unused, 42,
      std::bit_cast<long>(1.5));
  EXPECT_EQ(sim::console(), (std::vector<std::string>{"42 1.5"}));
}

// Apple's callees widen it, and the slice reads all of the register.
TEST(SmallResults, AreAWholeWord) {
  auto equal = imported<uint64_t(SEL, SEL)>("_sel_isEqual");
  EXPECT_EQ(equal(sel_registerName("one"), sel_registerName("one")) & 0xffffffff, 1u);
  EXPECT_EQ(equal(sel_registerName("one"), sel_registerName("other")) & 0xffffffff, 0u);
}

}  // namespace
